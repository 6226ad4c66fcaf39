// SPDX-License-Identifier: MIT
// `picMF`: the picture box with the graph.
#include "editor/windows/GraphWindow.h"

#include <utility>

#include "com/Module.h"
#include "editor/page/DrawVariableGraph.h"
#include "editor/windows/GdiGraphSurface.h"
#include "win/Dpi.h"
#include "win/MemoryBitmap.h"

namespace Quorvane::Editor {

GraphWindow::GraphWindow(HWND parent, UINT id, const DialogFont& font, Draw draw)
    : font_(font), draw_(std::move(draw)) {
    Make<GraphWindow>(Com::ModuleHandle(), {.Parent = parent,
                                            .Position = {},
                                            .Style = PartStyle,
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

HFONT GraphWindow::FontFor(int pictureHeight) {
    const int usual = font_.Units().CharacterHeight;
    const int height = GraphTextHeight(pictureHeight, usual);
    if (height == usual) {
        return font_.Get();
    }
    if (std::exchange(scaledHeight_, height) != height) {
        scaled_ = MakeDialogFontOfHeight(height);
    }
    return scaled_.Get();
}

/// Through a bitmap, so that nothing flickers.
void GraphWindow::Paint(HDC target) {
    const RECT area = Win::ClientArea(Get());
    const Win::MemoryBitmap memory(target, area, COLOR_WINDOW);
    {
        GdiGraphSurface surface(memory.Context(), {area.right, area.bottom}, FontFor(area.bottom),
                                Win::DpiOf(Get()));
        draw_(surface);
    }
    memory.CopyTo(target);
}

} // namespace Quorvane::Editor
