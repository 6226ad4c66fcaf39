// SPDX-License-Identifier: MIT
// Painting by way of a bitmap in memory.
#include "host/form/Drawing.h"

namespace Quorvane::Host {

namespace {

RECT ClientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

} // namespace

BufferedPaint::BufferedPaint(HWND window, int background)
    : window_(window), area_(ClientArea(window)), screen_(BeginPaint(window, &paint_)),
      memory_(screen_),
      bitmap_(memory_.Handle, CreateCompatibleBitmap(screen_, area_.right, area_.bottom)) {
    FillRect(memory_.Handle, &area_, GetSysColorBrush(background));
}

BufferedPaint::~BufferedPaint() {
    BitBlt(screen_, 0, 0, area_.right, area_.bottom, memory_.Handle, 0, 0, SRCCOPY);
    EndPaint(window_, &paint_);
}

} // namespace Quorvane::Host
