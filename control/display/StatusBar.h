// SPDX-License-Identifier: MIT
// The status bar `sbMessage`.
#pragma once

#include <windows.h>

#include "control/display/Display.h"
#include "win/ImageList.h"
#include "win/Window.h"

namespace Quorvane {

/// The window of the status bar: one panel, of no width while it is hidden.
class StatusBar final {
  public:
    /// Makes the bar in the parent; it shows this panel, which outlives it. Throws
    /// std::system_error.
    StatusBar(HWND parent, UINT id, const StatusPanel& panel);

    HWND Get() const noexcept { return window_.Get(); }

    /// Uses the bar's font for so many dots per inch, and the picture "Error" of these images.
    void SetDpi(int dpi, const Win::ImageList& images);

    /// Shows the panel as it is now.
    void Reflect() noexcept;

  private:
    const StatusPanel& panel_;
    Win::Font font_;
    Win::Icon errorPicture_;
    Win::ChildWindow window_;
};

} // namespace Quorvane
