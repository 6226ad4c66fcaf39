// SPDX-License-Identifier: MIT
// Painting by way of a bitmap in memory.
#include "host/form/parts/Drawing.h"

namespace Quorvane::Host {

namespace {

RECT ClientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

} // namespace

MemoryBitmap::MemoryBitmap(HDC screen, const RECT& area, int background)
    : area_(area), context_(screen),
      bitmap_(context_.Handle, CreateCompatibleBitmap(screen, area_.right, area_.bottom)) {
    FillRect(context_.Handle, &area_, GetSysColorBrush(background));
}

void MemoryBitmap::CopyTo(HDC target) const {
    BitBlt(target, 0, 0, area_.right, area_.bottom, context_.Handle, 0, 0, SRCCOPY);
}

BufferedPaint::BufferedPaint(HWND window, int background)
    : window_(window), screen_(BeginPaint(window, &paint_)),
      memory_(screen_, ClientArea(window), background) {}

BufferedPaint::~BufferedPaint() {
    memory_.CopyTo(screen_);
    EndPaint(window_, &paint_);
}

} // namespace Quorvane::Host
