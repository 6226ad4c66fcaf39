// SPDX-License-Identifier: MIT
// `picMF`: the picture box with the graph.
#include "editor/windows/GraphWindow.h"

#include "com/Module.h"
#include "editor/windows/GdiGraphSurface.h"
#include "win/Dpi.h"
#include "win/MemoryBitmap.h"

namespace Quorvane::Editor {

GraphWindow::GraphWindow(HWND parent, UINT id, const DialogFont& font, Draw draw)
    : font_(font), draw_(std::move(draw)) {
    Make<GraphWindow>(Com::ModuleHandle(), {.Parent = parent,
                                            .Position = {},
                                            .Style = WS_CHILD | WS_VISIBLE,
                                            .ExtendedStyle = WS_EX_CLIENTEDGE,
                                            .Id = id});
}

LRESULT GraphWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_PAINT:
        Paint(Win::PaintDc(Get()).Get());
        return 0;
    case WM_PRINTCLIENT:
        Paint(reinterpret_cast<HDC>(first));
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_SIZE:
        Redraw();
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

/// Through a bitmap, so that nothing flickers.
void GraphWindow::Paint(HDC target) {
    const RECT area = Win::ClientArea(Get());
    const Win::MemoryBitmap memory(target, area, COLOR_WINDOW);
    {
        GdiGraphSurface surface(memory.Context(), {area.right, area.bottom}, font_.Get(),
                                Win::DpiOf(Get()));
        draw_(surface);
    }
    memory.CopyTo(target);
}

} // namespace Quorvane::Editor
