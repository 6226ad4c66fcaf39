// SPDX-License-Identifier: MIT
// PropertyFrame: a dialog that shows the property pages of a control.
#pragma once

#include "host/container/ComPtr.h"

#include <windows.h>

#include <string>

namespace Quorvane::Host {

/// Shows the property pages of an object, modally over the owner, with OK, Cancel, Apply and Help.
/// Pages of classes that are not registered are left out; without any page a message says so.
/// Throws HResultError.
void ShowPropertyFrame(HWND owner, const std::wstring& title, IUnknown* object, LCID locale);

} // namespace Quorvane::Host
