// SPDX-License-Identifier: MIT
// `picMF`: the picture box with the graph.
#pragma once

#include <functional>

#include "editor/page/GraphSurface.h"
#include "editor/windows/Controls.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The picture box. What it shows is drawn when it is painted, in texts as high as it allows.
class GraphWindow final : public Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneGraph";

    /// Draws the picture of the moment.
    using Draw = std::function<void(GraphSurface&)>;

    /// The font outlives the window. Throws std::system_error.
    GraphWindow(HWND parent, UINT id, const DialogFont& font, Draw draw);
    ~GraphWindow() override { Destroy(); }

    void Redraw() const noexcept { ::InvalidateRect(Get(), nullptr, FALSE); }

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void Paint(HDC target);
    HFONT FontFor(int pictureHeight);

    /// What texts have where the picture lets them.
    const DialogFont& font_;
    Win::Font scaled_;
    int scaledHeight_ = 0;
    Draw draw_;
};

} // namespace Quorvane::Editor
