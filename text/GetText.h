// SPDX-License-Identifier: MIT
// Every text that a person sees, by number, in the current language.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane::Main {

/// The language id that selects Simplified Chinese; every other selects English.
inline constexpr std::int32_t SimplifiedChinese = 2052;

/// The text with an id in the language of LanguageId. An id that is not assigned, negative or
/// beyond the table gives the empty text.
Text GetText(std::int32_t id);

/// A message with every "?" replaced by the limit that was violated.
Text GetText(std::int32_t id, TextView limit);

} // namespace Quorvane::Main
