// SPDX-License-Identifier: MIT
// Wide: passes UTF-16 text between the form file's type and the platform's.
#pragma once

#include <string>
#include <string_view>

namespace Quorvane::Host {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the platform's text is UTF-16");

inline std::wstring ToWide(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
}

inline std::u16string FromWide(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}

} // namespace Quorvane::Host
