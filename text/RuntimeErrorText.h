// SPDX-License-Identifier: MIT
// The platform's run-time errors in words. They have no number in the text table, whose numbers are
// given; these errors have numbers of their own.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane::Main {

/// The words of the platform for a run-time error that a user can meet, with its number, in the
/// current language: 0x800A000D -> "Type mismatch (13)". Empty for any other code.
Text RuntimeErrorText(std::uint32_t code);

/// The last resort, where nobody has words for a code: "Error -2147467259".
Text UnknownErrorText(std::int32_t code);

} // namespace Quorvane::Main
