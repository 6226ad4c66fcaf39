// SPDX-License-Identifier: MIT
// The text of a file in UTF-8.
#include "formats/Utf8Text.h"

#include <algorithm>

#include "formats/FormatError.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Formats {

Text DecodedText(std::string_view utf8) {
    try {
        return Host::DecodeUtf8(utf8);
    } catch (const Host::Utf8Error& error) {
        const auto read = utf8.substr(0, error.Offset);
        const auto lines = static_cast<std::size_t>(std::ranges::count(read, '\n'));
        throw FormatError({lines + 1, 0}, error.what());
    }
}

} // namespace Quorvane::Formats
