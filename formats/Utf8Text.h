// SPDX-License-Identifier: MIT
// The text of a file in UTF-8.
#pragma once

#include <string_view>

#include "shared/Text.h"

namespace Quorvane::Formats {

/// The text, without a byte order mark. Throws FormatError, with the line, for what is not UTF-8.
Text DecodedText(std::string_view utf8);

} // namespace Quorvane::Formats
