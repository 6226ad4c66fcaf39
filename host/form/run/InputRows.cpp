// SPDX-License-Identifier: MIT
// InputRows: a field and a slider for each input of a control, in a panel that scrolls.
#include "host/form/run/InputRows.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"
#include "host/form/parts/Automation.h"
#include "win/Dpi.h"
#include "win/Raised.h"
#include "win/WideText.h"
#include "win/WindowText.h"

namespace Quorvane::Host {
namespace {

constexpr int SliderSteps = 1000;
constexpr int RowHeight = 30;
constexpr int FirstId = 1000;

/// A number as the user writes it.
std::optional<double> NumberOf(const Text& text) {
    try {
        return Com::ChangeType(Com::Variant(TextView(text)).Get(), VT_R8).Get().dblVal;
    } catch (const Com::HresultError&) {
        return std::nullopt;
    }
}

Text TextOfNumber(double number) {
    return ValueText(Com::Variant(number));
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
    Create<InputRows>(u"Inputs", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_CLIPCHILDREN, parent,
                      WS_EX_CONTROLPARENT);
}

int InputRows::HeightOf(HWND window, int rows) {
    return ::MulDiv(RowHeight * rows, Win::DpiOf(window), USER_DEFAULT_SCREEN_DPI);
}

void InputRows::SetInputs(const std::vector<StoredVariable>& inputs) {
    // What goes may still send messages, and is to find no rows.
    std::exchange(rows_, {}).clear();
    offset_ = 0;
    int id = FirstId;
    for (const StoredVariable& input : inputs) {
        Row row;
        row.Input = input;
        row.Label =
            MakeChild(Get(), L"STATIC", input.Name, SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, -1);
        row.Field =
            MakeChild(Get(), L"EDIT", {}, WS_TABSTOP | ES_AUTOHSCROLL, id++, WS_EX_CLIENTEDGE);
        row.Slider = MakeChild(Get(), TRACKBAR_CLASSW, input.Name, WS_TABSTOP | TBS_NOTICKS, -1);
        ::SendMessageW(row.Slider.Get(), TBM_SETRANGE, FALSE, MAKELPARAM(0, SliderSteps));
        ::SendMessageW(row.Slider.Get(), TBM_SETPAGESIZE, 0, SliderSteps / 20);
        row.FieldMessages = Watch(row.Field);
        row.SliderMessages = Watch(row.Slider);
        rows_.push_back(std::move(row));
    }
    Arrange();
}

void InputRows::ShowValue(const Text& name, const Text& text) {
    for (const Row& row : rows_) {
        if (row.Input.Name == name && Win::TextOf(row.Field.Get()) != text) {
            {
                const Win::Raised showing(isShowing_);
                ::SetWindowTextW(row.Field.Get(), Win::Wide(text));
            }
            PlaceSlider(row);
        }
    }
}

LRESULT InputRows::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        Arrange();
        return 0;
    case WM_VSCROLL:
        Scroll(LOWORD(first), HIWORD(first));
        return 0;
    case WM_MOUSEWHEEL:
        ScrollTo(offset_ - ::MulDiv(GET_WHEEL_DELTA_WPARAM(first), Scaled(RowHeight), WHEEL_DELTA));
        return 0;
    case WM_HSCROLL:
        OnSlider(reinterpret_cast<HWND>(second));
        return 0;
    case WM_COMMAND:
        if (HIWORD(first) == EN_CHANGE && !isShowing_) {
            OnField(static_cast<std::size_t>(LOWORD(first) - FirstId));
        }
        return 0;
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

void InputRows::Arrange() {
    const RECT area = Win::ClientArea(Get());
    const int height = Scaled(RowHeight);
    SCROLLINFO scroll{};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    scroll.nMax = std::max(0, static_cast<int>(rows_.size()) * height - 1);
    scroll.nPage = static_cast<UINT>(area.bottom);
    scroll.nPos = offset_;
    offset_ = ::SetScrollInfo(Get(), SB_VERT, &scroll, TRUE);
    const int label = Scaled(84);
    const int field = Scaled(84);
    const int gap = Scaled(4);
    int top = -offset_;
    const auto place = [&](const Win::ChildWindow& child, int left, int width, int childHeight) {
        MoveChild(child, left, top + (height - Scaled(childHeight)) / 2, std::max(0, width),
                  Scaled(childHeight));
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
    const RECT area = Win::ClientArea(Get());
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
    ::SetScrollPos(Get(), SB_VERT, offset, TRUE);
    const int reached = ::GetScrollPos(Get(), SB_VERT);
    if (std::exchange(offset_, reached) != reached) {
        Arrange();
    }
}

void InputRows::Reveal(HWND child) {
    const RECT area = Win::ClientArea(Get());
    const auto row = std::ranges::find_if(rows_, [child](const Row& each) {
        return each.Field.Get() == child || each.Slider.Get() == child;
    });
    const int top = static_cast<int>(row - rows_.begin()) * Scaled(RowHeight);
    const int bottom = top + Scaled(RowHeight);
    ScrollTo(std::clamp(offset_, std::min(bottom - static_cast<int>(area.bottom), top), top));
}

std::unique_ptr<Win::Subclass> InputRows::Watch(const Win::ChildWindow& child) {
    return std::make_unique<Win::Subclass>(
        child.Get(),
        [this, window = child.Get()](UINT message, WPARAM first,
                                     LPARAM second) -> std::optional<LRESULT> {
            if (message == WM_MOUSEWHEEL) {
                // The wheel scrolls the rows, and changes no input on the way.
                return ::SendMessageW(Get(), message, first, second);
            }
            if (message == WM_SETFOCUS) {
                Reveal(window);
            }
            return std::nullopt;
        });
}

void InputRows::OnSlider(HWND slider) {
    for (const Row& row : rows_) {
        if (row.Slider.Get() == slider) {
            const auto step = static_cast<int>(::SendMessageW(slider, TBM_GETPOS, 0, 0));
            const Text text = TextOfNumber(ValueAt(row.Input, step));
            {
                const Win::Raised showing(isShowing_);
                ::SetWindowTextW(row.Field.Get(), Win::Wide(text));
            }
            changed_(row.Input.Name, text);
        }
    }
}

void InputRows::OnField(std::size_t row) {
    if (row < rows_.size()) {
        PlaceSlider(rows_[row]);
        changed_(rows_[row].Input.Name, Win::TextOf(rows_[row].Field.Get()));
    }
}

void InputRows::PlaceSlider(const Row& row) {
    if (const auto value = NumberOf(Win::TextOf(row.Field.Get()))) {
        const double share = (*value - row.Input.Lower) / (row.Input.Upper - row.Input.Lower);
        // Bounds that are equal give no share at all.
        const auto step = std::lround(share > 0 ? std::min(share, 1.0) * SliderSteps : 0.0);
        ::SendMessageW(row.Slider.Get(), TBM_SETPOS, TRUE, step);
    }
}

} // namespace Quorvane::Host
