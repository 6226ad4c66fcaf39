// SPDX-License-Identifier: MIT
// The ids of the module's own resources. The type library is 1, as loading by file name expects.
#pragma once

// NOLINTBEGIN(cppcoreguidelines-macro-usage): the resource compiler knows no other constants
#define QUORVANE_TYPELIB 1
#define QUORVANE_TOOLBOX_BITMAP 101
// NOLINTEND(cppcoreguidelines-macro-usage)
