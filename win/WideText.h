// SPDX-License-Identifier: MIT
// Texts for the platform's functions.
#pragma once

#include "shared/Text.h"

namespace Quorvane::Win {

/// A zero-terminated form for the platform's functions; it lives as long as the text.
inline const wchar_t* Wide(const Text& text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

/// Whether the zero-terminated form is all of the text. The platform reads a path as far as its
/// first zero, and what stands before that can be another file.
inline bool IsWholeWide(const Text& text) noexcept {
    return text.find(u'\0') == Text::npos;
}

/// The characters of a text for functions that are told how many there are; no zero follows them.
inline const wchar_t* Characters(TextView text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.data());
}

} // namespace Quorvane::Win
