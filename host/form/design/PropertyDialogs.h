// SPDX-License-Identifier: MIT
// PropertyDialogs: the system's dialogs for colours and fonts.
#pragma once

#include <windows.h>

#include <olectl.h>

#include <optional>

#include "com/ComPtr.h"

namespace Quorvane::Host {

/// Asks for a colour; none when the user gives none.
std::optional<COLORREF> AskForColor(HWND owner, COLORREF offered);

/// Asks for a font, a new object; null when the user gives none. `offered` may be null. Throws
/// Com::HresultError.
Com::ComPtr<IFontDisp> AskForFont(HWND owner, IFont* offered);

} // namespace Quorvane::Host
