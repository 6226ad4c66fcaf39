// SPDX-License-Identifier: MIT
// Fonts for tests to give and to compare.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include "com/ComPtr.h"

namespace Quorvane {

/// A platform font. The face is Tahoma, but may read back as another where Tahoma is missing.
Com::ComPtr<IFontDisp> NewFont(LONG points, SHORT weight = FW_NORMAL);

/// The size in points; 0 for no font.
LONG PointsOf(IFontDisp* font);

SHORT WeightOf(IFontDisp* font);

} // namespace Quorvane
