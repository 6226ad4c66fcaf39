// SPDX-License-Identifier: MIT
// Waiting for another program to get somewhere.
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace Quorvane::Driving {

/// The driven program did not do what it was expected to do.
struct DriveError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Waits until the condition holds. False when it does not for so long.
bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds = 20000);

/// Waits until the condition holds. Throws DriveError, which says that `what` did not happen.
void Expect(const std::string& what, const std::function<bool()>& condition,
            DWORD milliseconds = 20000);

} // namespace Quorvane::Driving
