// SPDX-License-Identifier: MIT
// The part of a screen that windows may take.
#include "win/WorkArea.h"

#include <algorithm>
#include <optional>

namespace Quorvane::Win {
namespace {

/// The work area of a screen, nothing where the system does not tell it.
std::optional<RECT> WorkArea(HMONITOR screen) noexcept {
    MONITORINFO information{};
    information.cbSize = sizeof information;
    return ::GetMonitorInfoW(screen, &information) ? std::optional(information.rcWork)
                                                   : std::nullopt;
}

} // namespace

RECT WorkAreaOf(HWND window) noexcept {
    return WorkArea(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)).value_or(RECT{});
}

RECT WithinWorkArea(const RECT& place) noexcept {
    const auto found = WorkArea(::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
    if (!found) {
        return place;
    }
    const RECT& work = *found;
    const LONG width = std::min(place.right - place.left, work.right - work.left);
    const LONG height = std::min(place.bottom - place.top, work.bottom - work.top);
    const LONG left = std::clamp(place.left, work.left, work.right - width);
    const LONG top = std::clamp(place.top, work.top, work.bottom - height);
    return {left, top, left + width, top + height};
}

} // namespace Quorvane::Win
