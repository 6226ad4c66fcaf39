// SPDX-License-Identifier: MIT
// The reserved markers; neither can be an identifier.
#pragma once

#include "shared/Text.h"

namespace Quorvane {

/// Stands for a term in a rule in which the variable takes no part.
inline constexpr TextView NoneMarker = u"[NONE]";

/// The text form of an input that has not been fuzzified since the rule base was prepared.
inline constexpr TextView EmptyMarker = u"[EMPTY]";

} // namespace Quorvane
