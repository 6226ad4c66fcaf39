// SPDX-License-Identifier: MIT
// The status bar `sbMessage`.
#pragma once

#include <windows.h>

#include <optional>

#include "control/display/Display.h"
#include "win/ImageList.h"
#include "win/Subclass.h"
#include "win/Window.h"

namespace Quorvane {

/// The window of the status bar: one panel, of no width while it is hidden.
class StatusBar final {
  public:
    /// Makes the bar in the parent; it shows this panel, which outlives it. Throws
    /// std::system_error.
    StatusBar(HWND parent, UINT id, const RECT& position, const StatusPanel& panel);

    HWND Get() const noexcept { return window_.Get(); }

    /// Uses the bar's font, and pictures, for so many dots per inch.
    void SetDpi(int dpi) noexcept;

    /// Shows the panel as it is now. Where the error picture cannot be made, its text is shown
    /// alone.
    void Reflect() noexcept;

  private:
    HICON ErrorPicture() noexcept;
    std::optional<LRESULT> OnMessage(UINT message);

    const StatusPanel& panel_;
    int dpi_ = 0;
    /// Empty until a cycle fails: most never do, and images take longer to make than the bar.
    Win::ImageList imgStatus_;
    Win::Font font_;
    Win::Icon errorPicture_;
    Win::ChildWindow window_;
    Win::Subclass subclass_;
};

} // namespace Quorvane
