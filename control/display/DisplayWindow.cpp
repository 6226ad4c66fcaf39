// SPDX-License-Identifier: MIT
// The control's surface.
#include "control/display/DisplayWindow.h"

#include <commctrl.h>

#include "com/Module.h"
#include "control/display/CellDrawing.h"
#include "win/Dpi.h"

namespace Quorvane {
namespace {

/// The classes of list views and status bars exist from here on.
void PrepareCommonControls() noexcept {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
}

HDWP Place(HDWP batch, HWND window, const PixelBox& box) noexcept {
    return batch ? ::DeferWindowPos(batch, window, nullptr, box.Left, box.Top, box.Width,
                                    box.Height, SWP_NOZORDER | SWP_NOACTIVATE)
                 : nullptr;
}

} // namespace

// Each is made where it stays: to move a window takes as long as to make one.
DisplayWindow::Children::Children(DisplayWindow& surface, Display& display,
                                  const PixelLayout& layout)
    : Strip(surface.Get(), PicCaption, LblCaption, layout, display.picCaption, display.lblCaption),
      Input(surface.Get(), LvwInput, RectangleOf(layout.Input.Box), display.lvwInput,
            [&surface](bool focused, HWND other) { surface.OnFocus(focused, other); }),
      Output(surface.Get(), LvwOutput, RectangleOf(layout.Output.Box), display.lvwOutput,
             [&surface](bool focused, HWND other) { surface.OnFocus(focused, other); }),
      Status(surface.Get(), SbMessage, RectangleOf(layout.Status), display.sbMessage) {}

DisplayWindow::DisplayWindow(Display& display, DisplayOwner& owner, HWND parent,
                             const RECT& position)
    : display_(display), owner_(&owner),
      context_(Win::ActivationContext::Shared(Com::ModuleHandle())) {
    const Win::ActivationScope scope(*context_);
    PrepareCommonControls();
    Make<DisplayWindow>(Com::ModuleHandle(), {.Parent = parent,
                                              .Position = position,
                                              .Style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                                              .ExtendedStyle = WS_EX_CONTROLPARENT});
    dpi_ = Win::DpiOf(Get());
    const PixelLayout layout = LayOutArea();
    children_ = std::make_unique<Children>(*this, display, layout);
    UseDpi();
    ShowColumns(layout);
    ShowRows();
}

DisplayWindow::~DisplayWindow() {
    owner_ = nullptr;
    OnDestroy();
    Destroy();
}

void DisplayWindow::UseDpi() {
    dpi_ = Win::DpiOf(Get());
    children_->Strip.SetDpi(dpi_);
    children_->Status.SetDpi(dpi_);
    children_->Input.SetFont(dpi_);
    children_->Output.SetFont(dpi_);
    Reflect();
}

void DisplayWindow::Reflect() noexcept {
    if (!children_) {
        return;
    }
    const bool losesFocus = ParkFocus();
    children_->Strip.Reflect();
    children_->Input.Reflect();
    children_->Output.Reflect();
    children_->Status.Reflect();
    if (losesFocus) {
        MoveFocus(true);
    }
    const PixelLayout layout = ToPixels(display_.Layout(), 0, 0, static_cast<float>(dpi_));
    children_->Strip.MoveLabel(layout.Label, layout.Caption.Width);
}

/// Takes the focus from a list that is about to be disabled, where it would be lost. Returns
/// whether it has.
bool DisplayWindow::ParkFocus() noexcept {
    HWND const focus = ::GetFocus();
    if ((focus != children_->Input.Get() || display_.lvwInput.Enabled) &&
        (focus != children_->Output.Get() || display_.lvwOutput.Enabled)) {
        return false;
    }
    isParking_ = true;
    ::SetFocus(Get());
    isParking_ = false;
    return true;
}

void DisplayWindow::ShowFonts() noexcept {
    if (children_) {
        children_->Input.SetFont(dpi_);
        children_->Output.SetFont(dpi_);
    }
}

void DisplayWindow::ShowRows() noexcept {
    if (children_) {
        children_->Input.ShowRows();
        children_->Output.ShowRows();
    }
}

void DisplayWindow::ShowInputValues() noexcept {
    if (children_) {
        children_->Input.ShowValues();
    }
}

void DisplayWindow::ShowOutputValues() noexcept {
    if (children_) {
        children_->Output.ShowValues();
    }
}

PixelLayout DisplayWindow::LayOutArea() noexcept {
    RECT area{};
    ::GetClientRect(Get(), &area);
    display_.Resize(Win::TwipsOf(area.right, dpi_), Win::TwipsOf(area.bottom, dpi_));
    return ToPixels(display_.Layout(), area.right, area.bottom, static_cast<float>(dpi_));
}

void DisplayWindow::ShowColumns(const PixelLayout& layout) noexcept {
    children_->Input.ShowColumns(layout.Input.ColumnWidth);
    children_->Output.ShowColumns(layout.Output.ColumnWidth);
}

void DisplayWindow::Arrange() noexcept {
    const PixelLayout layout = LayOutArea();
    // All at once, so that no window is seen at its new place over another at its old one.
    HDWP batch = ::BeginDeferWindowPos(4);
    batch = Place(batch, children_->Strip.Get(), layout.Strip);
    batch = Place(batch, children_->Input.Get(), layout.Input.Box);
    batch = Place(batch, children_->Output.Get(), layout.Output.Box);
    batch = Place(batch, children_->Status.Get(), layout.Status);
    if (batch) {
        ::EndDeferWindowPos(batch);
    }
    ShowColumns(layout);
    Reflect();
}

bool DisplayWindow::MoveFocus(bool forward) noexcept {
    if (!children_) {
        return false;
    }
    HWND const lists[] = {children_->Input.Get(), children_->Output.Get()};
    HWND const focus = ::GetFocus();
    const int step = forward ? 1 : -1;
    int index = forward ? 0 : 1;
    for (int i = 0; i < 2; ++i) {
        if (lists[i] == focus) {
            index = i + step;
        }
    }
    for (; index >= 0 && index < 2; index += step) {
        if (::IsWindowEnabled(lists[index])) {
            ::SetFocus(lists[index]);
            return true;
        }
    }
    return false;
}

bool DisplayWindow::Contains(HWND window) const noexcept {
    return Get() && (window == Get() || ::IsChild(Get(), window));
}

void DisplayWindow::OnFocus(bool focused, HWND other) noexcept {
    // Between surface and lists the focus neither comes nor goes.
    if (!owner_ || hasFocus_ == focused || (!focused && Contains(other))) {
        return;
    }
    hasFocus_ = focused;
    // This may be the end of the window.
    owner_->OnDisplayFocus(focused);
}

LRESULT DisplayWindow::OnNotify(NMHDR& notification) const noexcept {
    if (children_ && notification.idFrom == LvwInput) {
        return children_->Input.OnNotify(notification);
    }
    if (children_ && notification.idFrom == LvwOutput) {
        return children_->Output.OnNotify(notification);
    }
    return 0;
}

/// The children go before their parent takes them along, while their handles still mean them.
void DisplayWindow::OnDestroy() noexcept {
    const auto closing = std::exchange(children_, nullptr);
}

/// The children cover the surface, but for what a control lower than its strip leaves uncovered.
void DisplayWindow::Paint() noexcept {
    const Win::PaintDc paint(Get());
    RECT area{};
    ::GetClientRect(Get(), &area);
    ::FillRect(paint.Get(), &area, ::GetSysColorBrush(COLOR_BTNFACE));
}

LRESULT DisplayWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    const Win::ActivationScope scope(*context_);
    switch (message) {
    case WM_SIZE:
        if (children_) {
            Arrange();
        }
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint();
        return 0;
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<NMHDR*>(second));
    case WM_SETFOCUS:
        // A list takes it over; without one that can, the surface keeps it.
        if (isParking_ || !MoveFocus(true)) {
            OnFocus(true, nullptr);
        }
        return 0;
    case WM_KILLFOCUS:
        OnFocus(false, reinterpret_cast<HWND>(first));
        return 0;
    case WM_HELP:
        if (owner_ && owner_->OnDisplayHelp()) {
            return TRUE;
        }
        break;
    case WM_SYSCOLORCHANGE:
        if (children_) {
            ::SendMessageW(children_->Input.Get(), message, 0, 0);
            ::SendMessageW(children_->Output.Get(), message, 0, 0);
            Reflect();
        }
        return 0;
    case Win::DpiChangedAfterParent:
        if (children_) {
            UseDpi();
            Arrange();
        }
        return 0;
    case WM_DESTROY:
        OnDestroy();
        return 0;
    default:
        break;
    }
    return Window::OnMessage(message, first, second);
}

} // namespace Quorvane
