// SPDX-License-Identifier: MIT
// Failed calls of the window system.
#include "win/Error.h"

#include <windows.h>

#include <system_error>

namespace Quorvane::Win {

void ThrowLastError() {
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
}

} // namespace Quorvane::Win
