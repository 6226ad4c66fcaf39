// SPDX-License-Identifier: MIT
// The platform's font objects.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "control/com/ComPtr.h"

namespace Quorvane {

/// A new font object with the face and size of the user's dialogs. Throws Com::HresultError.
Com::ComPtr<IFontDisp> NewDialogFont();

/// Whether two font objects have the same attributes; a null font equals only null.
bool HaveSameAttributes(IFontDisp* left, IFontDisp* right);

} // namespace Quorvane
