// SPDX-License-Identifier: MIT
// The control's surface: the window that shows a Display in its children.
#pragma once

#include <windows.h>

#include <memory>

#include "control/display/CaptionStrip.h"
#include "control/display/Display.h"
#include "control/display/DisplayLayout.h"
#include "control/display/StatusBar.h"
#include "control/display/VariableList.h"
#include "win/ActivationContext.h"
#include "win/Window.h"

namespace Quorvane {

class DisplayWindow final : public Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"Quorvane.FISControl";

    /// The ids of the child windows.
    enum Id : UINT { PicCaption = 1, LblCaption, LvwInput, LvwOutput, SbMessage };

    /// Makes the surface, hidden, in the parent. Display and owner outlive it. Throws
    /// std::system_error.
    DisplayWindow(Display& display, DisplayOwner& owner, HWND parent, const RECT& position);
    ~DisplayWindow() override;

    /// Shows captions, colours, states and the status panel as they are now.
    void Reflect() noexcept;

    /// Shows the lists in their fonts as these are now.
    void ShowFonts() noexcept;

    /// Shows the rows as they are now.
    void ShowRows() noexcept;

    /// Repaint a list with its values.
    void ShowInputValues() noexcept;
    void ShowOutputValues() noexcept;

    /// Gives the focus to the next list in the direction, or to the first in it where no list has
    /// the focus. False where there is none.
    bool MoveFocus(bool forward) noexcept;

    /// Whether the window is the surface or inside it.
    bool Contains(HWND window) const noexcept;

  private:
    /// What stands in the surface.
    struct Children {
        Children(DisplayWindow& surface, Display& display, const PixelLayout& layout);

        // In the order in which they lie upon each other: a new window lies under its siblings.
        CaptionStrip Strip;
        VariableList Input;
        VariableList Output;
        StatusBar Status;
    };

    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
    LRESULT OnNotify(NMHDR& notification) const noexcept;
    void OnFocus(bool focused, HWND other) noexcept;
    bool ParkFocus() noexcept;
    void OnDestroy() noexcept;
    void Paint() noexcept;
    void UseDpi();
    PixelLayout LayOutArea() noexcept;
    void ShowColumns(const PixelLayout& layout) noexcept;
    void Arrange() noexcept;

    Display& display_;
    /// Null once the surface is being closed: its owner wants to hear no more.
    DisplayOwner* owner_;
    std::shared_ptr<const Win::ActivationContext> context_;
    int dpi_ = 0;
    /// Whether the owner has heard that the keyboard focus is here.
    bool hasFocus_ = false;
    bool isParking_ = false;
    std::unique_ptr<Children> children_;
};

} // namespace Quorvane
