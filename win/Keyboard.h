// SPDX-License-Identifier: MIT
// The keys that are held down.
#pragma once

#include <windows.h>

namespace Quorvane::Win {

/// Whether a key or a mouse button was down when the message that is being handled was sent. `key`
/// is the platform's code, such as VK_SHIFT.
inline bool IsPressed(int key) noexcept {
    return ::GetKeyState(key) < 0;
}

} // namespace Quorvane::Win
