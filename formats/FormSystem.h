// SPDX-License-Identifier: MIT
// The fuzzy system of a control in a form file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/FormatError.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Formats {

/// Reads the system of the control of a name, or of the first one where the name is empty, from a
/// form file's text in UTF-8. A text that the form leaves out is the built-in one. Throws
/// FormatError.
System::FuzzySystem ReadFormSystem(std::string_view utf8, std::string_view control = {});

/// The names of the form's fuzzy controls in their order. Throws FormatError.
std::vector<std::string> FormControlNames(std::string_view utf8);

/// The text of a form in which that control has another system, and all else is as it was. Throws
/// FormatError, for names that the stored form cannot hold, too.
std::string ReplaceFormSystem(std::string_view utf8, const System::FuzzySystem& system,
                              std::string_view control = {});

/// The text of a new form of a name, an identifier, with one control. Throws FormatError.
std::string WriteFormSystem(const System::FuzzySystem& system, std::string_view name);

} // namespace Quorvane::Formats
