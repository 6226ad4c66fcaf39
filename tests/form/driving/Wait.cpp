// SPDX-License-Identifier: MIT
// Waiting for another program to get somewhere.
#include "tests/form/driving/Wait.h"

namespace Quorvane::Driving {

bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (!condition()) {
        if (GetTickCount64() > end) {
            return false;
        }
        Sleep(10);
    }
    return true;
}

void Expect(const std::string& what, const std::function<bool()>& condition, DWORD milliseconds) {
    if (!WaitFor(condition, milliseconds)) {
        throw DriveError("did not happen: " + what);
    }
}

} // namespace Quorvane::Driving
