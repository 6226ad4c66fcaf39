// SPDX-License-Identifier: MIT
// PropertyFrame: a dialog that shows the property pages of a control.
#pragma once

#include <windows.h>

#include "com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Shows the property pages of an object, modally over the owner, with OK, Cancel, Apply and Help.
/// Pages of classes that are not registered are left out; without any page a message says so.
/// Throws Com::HresultError.
void ShowPropertyFrame(HWND owner, const Text& title, IUnknown* object, LCID locale);

} // namespace Quorvane::Host
