// SPDX-License-Identifier: MIT
// What a person reads of an error.
#pragma once

#include <exception>

#include "shared/Text.h"

namespace Quorvane::Host {

/// The words of an error: the description of a failed call, or the UTF-8 text of any other error.
/// Throws std::bad_alloc.
Text WordsOf(const std::exception& error);

} // namespace Quorvane::Host
