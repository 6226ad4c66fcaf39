// SPDX-License-Identifier: MIT
// InputRows: a field and a slider for each input of a control, in a panel that scrolls.
#include "host/form/run/InputRows.h"

#include "host/container/Variant.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include <commctrl.h>

namespace Quorvane::Host {

namespace {

constexpr int SliderSteps = 1000;
constexpr int RowHeight = 30;
constexpr int FirstId = 1000;

/// A number as the user writes it.
std::optional<double> NumberOf(const std::wstring& text) {
    Variant value{std::wstring_view(text)};
    return SUCCEEDED(value.ChangeType(VT_R8, LOCALE_USER_DEFAULT)) ? std::optional(value.dblVal)
                                                                   : std::nullopt;
}

std::wstring TextOfNumber(double number) {
    Variant value(number);
    value.ChangeType(VT_BSTR, LOCALE_USER_DEFAULT);
    return std::wstring(ViewBstr(value.bstrVal));
}

/// What a step of the slider stands for: a bound exactly, else a number with no more places than
/// the slider can tell apart.
double ValueAt(const StoredVariable& input, int step) {
    const double range = input.Upper - input.Lower;
    if (step == 0 || range == 0) {
        return input.Lower;
    }
    if (step == SliderSteps) {
        return input.Upper;
    }
    const double number = input.Lower + range * step / SliderSteps;
    const double unit = std::pow(10.0, std::floor(std::log10(std::abs(range) / SliderSteps)));
    return std::round(number / unit) * unit;
}

} // namespace

InputRows::InputRows(HWND parent, Changed changed) : changed_(std::move(changed)) {
    Create(L"QuorvaneInputRows", L"Inputs", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_CLIPCHILDREN,
           parent, nullptr, WS_EX_CONTROLPARENT);
}

int InputRows::HeightOf(HWND window, int rows) {
    return MulDiv(RowHeight * rows, DpiOf(window), USER_DEFAULT_SCREEN_DPI);
}

void InputRows::SetInputs(const std::vector<StoredVariable>& inputs) {
    for (const Row& row : rows_) {
        DestroyWindow(row.Label);
        DestroyWindow(row.Field);
        DestroyWindow(row.Slider);
    }
    rows_.clear();
    offset_ = 0;
    int id = FirstId;
    for (const StoredVariable& input : inputs) {
        const HWND label = CreateChild(Handle(), L"STATIC", input.Name.c_str(),
                                       SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, -1);
        const HWND field = CreateChild(Handle(), L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, id++,
                                       WS_EX_CLIENTEDGE);
        const HWND slider = CreateChild(Handle(), TRACKBAR_CLASSW, input.Name.c_str(),
                                        WS_TABSTOP | TBS_NOTICKS, -1);
        SendMessageW(slider, TBM_SETRANGE, FALSE, MAKELPARAM(0, SliderSteps));
        SendMessageW(slider, TBM_SETPAGESIZE, 0, SliderSteps / 20);
        for (const HWND child : {field, slider}) {
            SetWindowSubclass(child, ChildProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
        }
        rows_.push_back({input, label, field, slider});
    }
    Arrange();
}

void InputRows::ShowValue(const std::wstring& name, const std::wstring& text) {
    for (const Row& row : rows_) {
        if (row.Input.Name == name && TextOf(row.Field) != text) {
            isShowing_ = true;
            SetWindowTextW(row.Field, text.c_str());
            isShowing_ = false;
            PlaceSlider(row);
        }
    }
}

LRESULT InputRows::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        Arrange();
        return 0;
    case WM_VSCROLL:
        Scroll(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        ScrollTo(offset_ - MulDiv(GET_WHEEL_DELTA_WPARAM(wParam), Scaled(RowHeight), WHEEL_DELTA));
        return 0;
    case WM_HSCROLL:
        OnSlider(reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == EN_CHANGE && !isShowing_) {
            OnField(static_cast<std::size_t>(LOWORD(wParam) - FirstId));
        }
        return 0;
    default:
        return Window::OnMessage(message, wParam, lParam);
    }
}

void InputRows::Arrange() {
    RECT area{};
    GetClientRect(Handle(), &area);
    const int height = Scaled(RowHeight);
    SCROLLINFO scroll{};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    scroll.nMax = std::max(0, static_cast<int>(rows_.size()) * height - 1);
    scroll.nPage = static_cast<UINT>(area.bottom);
    scroll.nPos = offset_;
    offset_ = SetScrollInfo(Handle(), SB_VERT, &scroll, TRUE);
    const int label = Scaled(84);
    const int field = Scaled(84);
    const int gap = Scaled(4);
    int top = -offset_;
    const auto place = [&](HWND child, int left, int width, int childHeight) {
        MoveWindow(child, left, top + (height - Scaled(childHeight)) / 2, std::max(0, width),
                   Scaled(childHeight), TRUE);
    };
    for (const Row& row : rows_) {
        place(row.Label, 0, label - gap, 14);
        place(row.Field, label, field, 21);
        place(row.Slider, label + field + gap, static_cast<int>(area.right) - label - field - gap,
              26);
        top += height;
    }
}

void InputRows::Scroll(int code, int position) {
    RECT area{};
    GetClientRect(Handle(), &area);
    switch (code) {
    case SB_LINEUP:
        ScrollTo(offset_ - Scaled(RowHeight));
        break;
    case SB_LINEDOWN:
        ScrollTo(offset_ + Scaled(RowHeight));
        break;
    case SB_PAGEUP:
        ScrollTo(offset_ - area.bottom);
        break;
    case SB_PAGEDOWN:
        ScrollTo(offset_ + area.bottom);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        ScrollTo(position);
        break;
    default:
        break;
    }
}

void InputRows::ScrollTo(int offset) {
    // The scroll bar knows how far it goes.
    SetScrollPos(Handle(), SB_VERT, offset, TRUE);
    const int reached = GetScrollPos(Handle(), SB_VERT);
    if (std::exchange(offset_, reached) != reached) {
        Arrange();
    }
}

void InputRows::Reveal(HWND child) {
    RECT area{};
    GetClientRect(Handle(), &area);
    const auto row = std::ranges::find_if(
        rows_, [child](const Row& each) { return each.Field == child || each.Slider == child; });
    const int top = static_cast<int>(row - rows_.begin()) * Scaled(RowHeight);
    const int bottom = top + Scaled(RowHeight);
    ScrollTo(std::clamp(offset_, std::min(bottom - static_cast<int>(area.bottom), top), top));
}

LRESULT CALLBACK InputRows::ChildProcedure(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR rows) {
    auto& self = *reinterpret_cast<InputRows*>(rows);
    if (message == WM_MOUSEWHEEL) {
        // The wheel scrolls the rows, and changes no input on the way.
        return SendMessageW(self.Handle(), message, wParam, lParam);
    }
    if (message == WM_SETFOCUS) {
        self.Reveal(child);
    } else if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(child, ChildProcedure, id);
    }
    return DefSubclassProc(child, message, wParam, lParam);
}

void InputRows::OnSlider(HWND slider) {
    for (const Row& row : rows_) {
        if (row.Slider == slider) {
            const auto step = static_cast<int>(SendMessageW(slider, TBM_GETPOS, 0, 0));
            const std::wstring text = TextOfNumber(ValueAt(row.Input, step));
            isShowing_ = true;
            SetWindowTextW(row.Field, text.c_str());
            isShowing_ = false;
            changed_(row.Input.Name, text);
        }
    }
}

void InputRows::OnField(std::size_t row) {
    if (row < rows_.size()) {
        PlaceSlider(rows_[row]);
        changed_(rows_[row].Input.Name, TextOf(rows_[row].Field));
    }
}

void InputRows::PlaceSlider(const Row& row) {
    if (const auto value = NumberOf(TextOf(row.Field))) {
        const double share = (*value - row.Input.Lower) / (row.Input.Upper - row.Input.Lower);
        // Bounds that are equal give no share at all.
        const auto step = std::lround(share > 0 ? std::min(share, 1.0) * SliderSteps : 0.0);
        SendMessageW(row.Slider, TBM_SETPOS, TRUE, step);
    }
}

} // namespace Quorvane::Host
