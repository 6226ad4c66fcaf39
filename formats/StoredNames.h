// SPDX-License-Identifier: MIT
// Which names the stored form of definition texts can hold.
#pragma once

#include "system/FuzzySystem.h"

namespace Quorvane::Formats {

/// Throws FormatError unless every name of the system has characters of Latin-1 alone, without
/// those that the codec writes with one digit (below U+0010).
void RequireStorableNames(const System::FuzzySystem& system);

} // namespace Quorvane::Formats
