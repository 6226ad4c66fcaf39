// SPDX-License-Identifier: MIT
// Failed calls of the window system.
#pragma once

namespace Quorvane::Win {

/// Throws the thread's last error as std::system_error.
[[noreturn]] void ThrowLastError();

} // namespace Quorvane::Win
