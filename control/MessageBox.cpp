// SPDX-License-Identifier: MIT
// Message boxes of the control.
#include "control/MessageBox.h"

#include "control/com/Scoped.h"

namespace Quorvane {

int ShowMessage(HWND owner, const Text& message, const Text& title, UINT style) noexcept {
    // Without an owner the box would not block the host's windows, so it blocks all of the
    // thread's.
    const UINT modality = owner ? MB_APPLMODAL : MB_TASKMODAL;
    return ::MessageBoxW(owner, Com::Wide(message), Com::Wide(title), style | modality);
}

} // namespace Quorvane
