// SPDX-License-Identifier: MIT
// `picMF`: the picture box with the graph.
#pragma once

#include <functional>

#include "editor/page/GraphSurface.h"
#include "editor/windows/Controls.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The picture box. What it shows is drawn when it is painted.
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

    const DialogFont& font_;
    Draw draw_;
};

} // namespace Quorvane::Editor
