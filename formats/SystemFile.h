// SPDX-License-Identifier: MIT
// Any file that holds a fuzzy system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formats/FormatError.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Formats {

enum class Format {
    /// The plain-text definition file, ".fuzzy".
    Definition,
    /// A form, ".form".
    Form,
    /// Three lines with the definition texts, ".txt", plain or stored.
    PlainTexts,
    StoredTexts,
};

/// The formats with their names, in the order of the enumeration.
std::string_view NameOf(Format format);
std::optional<Format> FormatNamed(std::string_view name);

/// The format that belongs to the ending of a file's name, in either case, with its ".".
std::optional<Format> FormatOfExtension(std::string_view extension);

/// The format of a file's text. The content decides; where it could be several, the ending does.
Format FormatOf(std::string_view utf8, std::string_view extension);

/// Reads a system. The name of a control is for forms alone. Throws FormatError.
System::FuzzySystem ReadSystem(std::string_view utf8, Format format, std::string_view control = {});

/// The text of a file with a system; a form gets this name. Throws FormatError where the format
/// cannot hold the system.
std::string WriteSystem(const System::FuzzySystem& system, Format format, std::string_view name);

} // namespace Quorvane::Formats
