// SPDX-License-Identifier: MIT
// Drawing by way of a bitmap in memory.
#include "win/MemoryBitmap.h"

#include "win/Window.h"

namespace Quorvane::Win {

void FillBackground(HWND window, HDC context) noexcept {
    const RECT area = ClientArea(window);
    ::FillRect(context, &area, ::GetSysColorBrush(COLOR_BTNFACE));
}

MemoryBitmap::MemoryBitmap(HDC screen, const RECT& area, int background) noexcept
    : area_(area), context_(::CreateCompatibleDC(screen)),
      bitmap_(::CreateCompatibleBitmap(screen, area.right, area.bottom)),
      selected_(context_.Get(), bitmap_.Get()) {
    ::FillRect(context_.Get(), &area_, ::GetSysColorBrush(background));
}

void MemoryBitmap::CopyTo(HDC target) const noexcept {
    ::BitBlt(target, 0, 0, area_.right, area_.bottom, context_.Get(), 0, 0, SRCCOPY);
}

BufferedPaint::BufferedPaint(HWND window, int background) noexcept
    : screen_(window), memory_(screen_.Get(), ClientArea(window), background) {}

} // namespace Quorvane::Win
