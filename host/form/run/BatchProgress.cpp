// SPDX-License-Identifier: MIT
// BatchProgress: how far a batch is, by the events that end its cycles.
#include "host/form/run/BatchProgress.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

namespace Quorvane::Host {

BatchProgress::~BatchProgress() {
    ::SendMessageW(bar_, PBM_SETPOS, 0, 0);
}

bool BatchProgress::OnPoint() {
    ++done_;
    const double step = std::max(1.0, std::floor(points_ / 100));
    if (std::fmod(done_, step) != 0 && !IsComplete()) {
        return false;
    }
    ::SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(done_ / points_ * 100), 0);
    // The program answers no message before the batch has ended.
    ::UpdateWindow(bar_);
    return true;
}

} // namespace Quorvane::Host
