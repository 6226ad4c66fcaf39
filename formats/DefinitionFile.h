// SPDX-License-Identifier: MIT
// The plain-text definition file: a fuzzy system that a person reads, and version control compares.
//
//     [Fuzzy system 1]
//
//     [Inputs]
//     # name / upper bound / lower bound, and a line for each term: name, its four points
//     Level / 100 / 0
//         Low, 0, 0, 20, 80
//         High, 20, 80, 100, 100
//
//     [Outputs]
//     # name / upper bound / lower bound, and a line for each term: name, its position
//     Pump / 1000 / 0
//         Off, 0
//         Full, 1000
//
//     [Rules]
//     # inputs > terms / outputs < terms : weight
//     Level > Low / Pump < Off : 1
//     Level > High / Pump < Full : 0.5
//
// It has the grammar of the definition texts (model/ParseDefinition.h) with a line for each
// variable, term and rule, where the texts have "|" and ";" between them; these may stand there,
// too, so that a definition text can be pasted under its heading. Blanks around names and numbers,
// empty lines, and comments from "#" to the end of a line mean nothing.
//
// A name may be in quotes, and has to be where it is empty, begins with "[" or a quote, begins or
// ends with a blank, or has a "#" or a control character. In quotes \" \\ and \uXXXX (a UTF-16
// code) stand for characters. No name has a separator | / ; , : > < of the grammar.
#pragma once

#include <string>
#include <string_view>

#include "formats/FormatError.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Formats {

/// The usual ending of such a file's name.
inline constexpr std::string_view DefinitionFileExtension = ".fuzzy";

/// Whether a text begins as such a file does, comments and empty lines aside.
bool IsDefinitionFile(std::string_view utf8);

/// Reads a file in UTF-8, with or without a byte order mark, and line ends of any kind. Throws
/// FormatError.
System::FuzzySystem ReadDefinitionFile(std::string_view utf8);

/// The file's text in UTF-8, with line feeds. Reading it gives the same system, to the bit. No name
/// may have a separator (System::IsPlainName).
std::string WriteDefinitionFile(const System::FuzzySystem& system);

} // namespace Quorvane::Formats
