// SPDX-License-Identifier: MIT
// Message boxes.
#include "win/MessageBox.h"

#include "win/WideText.h"

namespace Quorvane::Win {

int ShowMessage(HWND owner, const Text& message, const Text& title, UINT style) noexcept {
    // Without an owner the box would not block the host's windows, so it blocks all of the
    // thread's.
    const UINT modality = owner ? MB_APPLMODAL : MB_TASKMODAL;
    return ::MessageBoxW(owner, Wide(message), Wide(title), style | modality);
}

} // namespace Quorvane::Win
