// SPDX-License-Identifier: MIT
// A scrolling panel of the rule editor: `picInput` with `picInCtrl` and `vsbInput`, or the
// outputs'.
#include "editor/windows/PanelWindow.h"

#include <algorithm>

#include "com/Module.h"
#include "win/Dpi.h"
#include "win/Keyboard.h"
#include "win/MemoryBitmap.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

constexpr UINT ScrollBarId = 1;
constexpr UINT FirstListId = 100;

/// What lies right of the list boxes, in twips.
constexpr int RightMargin = 60;
constexpr int ListRight = 1250 + 1500;

} // namespace

PanelWindow::NameOf::NameOf(HWND window, Text name) : window_(window), name_(std::move(name)) {
    ::SetPropW(window_, Win::Wide(name_), window_);
}

PanelWindow::NameOf::~NameOf() {
    ::RemovePropW(window_, Win::Wide(name_));
}

PanelWindow::Content::Content(HWND parent) {
    Make<Content>(Com::ModuleHandle(), {.Parent = parent,
                                        .Position = {},
                                        .Style = PartStyle | WS_CLIPCHILDREN,
                                        .ExtendedStyle = WS_EX_CONTROLPARENT,
                                        .Id = 0});
}

LRESULT PanelWindow::Content::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_COMMAND:
    case WM_MOUSEWHEEL:
        return ::SendMessageW(::GetParent(Get()), message, first, second);
    case WM_ERASEBKGND:
        Win::FillBackground(Get(), reinterpret_cast<HDC>(first));
        return TRUE;
    default:
        return Window::OnMessage(message, first, second);
    }
}

PanelWindow::PanelWindow(HWND parent, UINT id, const RulePanel& panel, const DialogFont& font,
                         Chosen chosen)
    : panel_(panel), font_(font), chosen_(std::move(chosen)), dpi_(Win::DpiOf(parent)) {
    Make<PanelWindow>(Com::ModuleHandle(), {.Parent = parent,
                                            .Position = {},
                                            .Style = PartStyle | WS_CLIPCHILDREN,
                                            .ExtendedStyle = WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT,
                                            .Id = id});
    picCtrl_ = std::make_unique<Content>(Get());
    vsb_ = MakeControl(Get(), WC_SCROLLBARW, {}, SBS_VERT, ScrollBarId, font_);
    MakeRows();
    UpdateScroll();
}

PanelWindow::~PanelWindow() {
    names_.clear();
    rows_.clear();
    vsb_.Reset();
    picCtrl_.reset();
    Destroy();
}

int PanelWindow::Pixels(int twips) const {
    return ::MulDiv(twips, dpi_, Win::TwipsPerInch);
}

RECT PanelWindow::PixelArea(const TwipsArea& area) const {
    return {Pixels(area.Left), Pixels(area.Top), Pixels(area.Left + area.Width),
            Pixels(area.Top + area.Height)};
}

int PanelWindow::NaturalWidth() const {
    return Pixels(ListRight + RightMargin) + ::GetSystemMetrics(SM_CXVSCROLL) +
           2 * ::GetSystemMetrics(SM_CXEDGE);
}

void PanelWindow::MakeRows() {
    UINT id = FirstListId;
    for (const PanelRow& row : panel_.Rows) {
        RowControls made;
        made.Label = MakeControl(picCtrl_->Get(), WC_STATICW, row.LabelCaption,
                                 SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, 0, font_);
        names_.emplace_back(made.Label.Get(), row.LabelName);
        made.List = MakeControl(picCtrl_->Get(), WC_LISTBOXW, row.ListName,
                                WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, id++,
                                font_, WS_EX_CLIENTEDGE);
        for (const Text& item : row.Items) {
            ::SendMessageW(made.List.Get(), LB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(Win::Wide(item)));
        }
        rows_.push_back(std::move(made));
    }
    PlaceRows();
    ShowSelection();
}

void PanelWindow::PlaceRows() const {
    const auto place = [this](const Win::ChildWindow& window, const TwipsArea& area) {
        const RECT position = PixelArea(area);
        ::MoveWindow(window.Get(), position.left, position.top, position.right - position.left,
                     position.bottom - position.top, TRUE);
    };
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        place(rows_[i].Label, panel_.Rows[i].LabelArea);
        place(rows_[i].List, panel_.Rows[i].ListArea);
        RECT room{};
        ::GetClientRect(rows_[i].List.Get(), &room);
        const int height =
            ItemHeightIn(static_cast<int>(room.bottom), font_.Units().CharacterHeight);
        ::SendMessageW(rows_[i].List.Get(), LB_SETITEMHEIGHT, 0, height);
    }
}

void PanelWindow::UseDpi(int dpi) {
    dpi_ = dpi;
    ShowFont(picCtrl_->Get(), font_);
    PlaceRows();
    ShowSelection();
    UpdateScroll();
}

void PanelWindow::ShowSelection() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        ::SendMessageW(rows_[i].List.Get(), LB_SETCURSEL, panel_.Rows[i].Selected, 0);
    }
}

void PanelWindow::UpdateScroll() {
    if (!vsb_) {
        return;
    }
    RECT area{};
    ::GetClientRect(Get(), &area);
    const auto inner = static_cast<int>(Win::TwipsOf(area.bottom, dpi_));
    const PanelScroll scroll = PanelScrollFor(panel_.Height, inner);
    const int barWidth = ::GetSystemMetrics(SM_CXVSCROLL);
    scrollMax_ = scroll.Visible ? scroll.Max : 0;
    ::ShowWindow(vsb_.Get(), scroll.Visible ? SW_SHOW : SW_HIDE);
    ::MoveWindow(vsb_.Get(), area.right - barWidth, 0, barWidth, area.bottom, TRUE);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    // The page is what makes the thumb end where the last value shows the last row.
    info.nPage = PanelScrollStep;
    info.nMax = scrollMax_ + PanelScrollStep - 1;
    ::SetScrollInfo(vsb_.Get(), SB_CTL, &info, TRUE);
    ScrollTo(scrollValue_);
}

void PanelWindow::ScrollTo(int twips) {
    scrollValue_ = std::clamp(twips, 0, scrollMax_);
    ::SetScrollPos(vsb_.Get(), SB_CTL, scrollValue_, TRUE);
    RECT area{};
    ::GetClientRect(Get(), &area);
    const int barWidth = scrollMax_ > 0 ? ::GetSystemMetrics(SM_CXVSCROLL) : 0;
    ::MoveWindow(picCtrl_->Get(), 0, -Pixels(scrollValue_), area.right - barWidth,
                 Pixels(panel_.Height), TRUE);
}

/// The position of the thumb, of which a message carries but the lower half.
int PanelWindow::ThumbPosition(WORD lower) const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    ::GetScrollInfo(vsb_.Get(), SB_CTL, &info);
    return LOWORD(info.nTrackPos) == lower ? info.nTrackPos : lower;
}

void PanelWindow::OnScroll(int code, WORD position) {
    switch (code) {
    case SB_LINEUP:
    case SB_PAGEUP:
        ScrollTo(scrollValue_ - PanelScrollStep);
        break;
    case SB_LINEDOWN:
    case SB_PAGEDOWN:
        ScrollTo(scrollValue_ + PanelScrollStep);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        ScrollTo(ThumbPosition(position));
        break;
    case SB_TOP:
        ScrollTo(0);
        break;
    case SB_BOTTOM:
        ScrollTo(scrollMax_);
        break;
    default:
        break;
    }
}

void PanelWindow::OnCommand(UINT id, UINT code) {
    const std::size_t variable = id - FirstListId;
    if (id < FirstListId || variable >= rows_.size()) {
        return;
    }
    if (code == LBN_SELCHANGE) {
        const auto item = ::SendMessageW(rows_[variable].List.Get(), LB_GETCURSEL, 0, 0);
        if (item >= 0) {
            chosen_(variable, static_cast<std::size_t>(item));
        }
    } else if (code == LBN_SETFOCUS && !Win::IsPressed(VK_LBUTTON)) {
        // A list box that the keyboard has reached comes into view. Under a pressed mouse it stays
        // where it is: the mouse would drag its choice along.
        const TwipsArea& area = panel_.Rows[variable].ListArea;
        RECT frame{};
        ::GetClientRect(Get(), &frame);
        const auto height = static_cast<int>(Win::TwipsOf(frame.bottom, dpi_));
        if (area.Top < scrollValue_) {
            ScrollTo(area.Top);
        } else if (area.Top + area.Height > scrollValue_ + height) {
            ScrollTo(area.Top + area.Height - height);
        }
    }
}

LRESULT PanelWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        UpdateScroll();
        return 0;
    case WM_VSCROLL:
        OnScroll(LOWORD(first), HIWORD(first));
        return 0;
    case WM_MOUSEWHEEL:
        ScrollTo(scrollValue_ - GET_WHEEL_DELTA_WPARAM(first) * PanelScrollStep / WHEEL_DELTA);
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(first), HIWORD(first));
        return 0;
    case WM_ERASEBKGND:
        Win::FillBackground(Get(), reinterpret_cast<HDC>(first));
        return TRUE;
    default:
        return Window::OnMessage(message, first, second);
    }
}

} // namespace Quorvane::Editor
