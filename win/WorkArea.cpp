// SPDX-License-Identifier: MIT
// The part of a screen that windows may take.
#include "win/WorkArea.h"

#include <algorithm>

namespace Quorvane::Win {

RECT WithinWorkArea(const RECT& place) noexcept {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    if (!::GetMonitorInfoW(::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &screen)) {
        return place;
    }
    const RECT& work = screen.rcWork;
    const LONG width = std::min(place.right - place.left, work.right - work.left);
    const LONG height = std::min(place.bottom - place.top, work.bottom - work.top);
    const LONG left = std::clamp(place.left, work.left, work.right - width);
    const LONG top = std::clamp(place.top, work.top, work.bottom - height);
    return {left, top, left + width, top + height};
}

} // namespace Quorvane::Win
