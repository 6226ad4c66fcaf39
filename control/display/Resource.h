// SPDX-License-Identifier: MIT
// The ids of the resources that the display shows.
#pragma once

// NOLINTBEGIN(cppcoreguidelines-macro-usage): the resource compiler knows no other constants
#define QUORVANE_ERROR_ICON 102
// NOLINTEND(cppcoreguidelines-macro-usage)
