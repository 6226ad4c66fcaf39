// SPDX-License-Identifier: MIT
// A file with the three definition texts, plain or stored: a line each for inputs, outputs, rules.
#pragma once

#include <string>
#include <string_view>

#include "formats/FormatError.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Formats {

/// Whether the texts of a file are in their stored form: hexadecimal digits alone.
bool HasStoredTexts(std::string_view utf8);

/// Reads plain or stored texts in UTF-8; missing lines are empty texts. The code page of stored
/// texts is Latin-1. Throws FormatError, in stored texts with the column of the plain text.
System::FuzzySystem ReadTextsFile(std::string_view utf8);

/// The lines with plain texts.
std::string WritePlainTexts(const System::FuzzySystem& system);

/// The lines with stored texts, whose code page is Latin-1. Throws FormatError for names that it
/// lacks, or that have control characters: they would not be read back.
std::string WriteStoredTexts(const System::FuzzySystem& system);

} // namespace Quorvane::Formats
