// SPDX-License-Identifier: MIT
// FormSurface: the form itself, with its controls live in run mode and to be moved in design mode.
#include "host/form/surface/FormSurface.h"

#include <windowsx.h>

#include <algorithm>
#include <array>

#include "win/Keyboard.h"
#include "win/MemoryBitmap.h"

namespace Quorvane::Host {
namespace {

constexpr int GridStep = 8;
constexpr int HandleSize = 7;
constexpr int SmallestSide = 24;

LONG Snapped(LONG value, int step) {
    return (value + step / 2) / step * step;
}

} // namespace

FormSurface::FormSurface(HWND parent, FormSurfaceOwner& owner) : owner_(owner) {
    Create<FormSurface>(u"Form", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP, parent,
                        WS_EX_CLIENTEDGE);
}

FormSurface::~FormSurface() {
    Clear();
}

void FormSurface::Clear() {
    selected_ = nullptr;
    activeObject_.Reset();
    // Last one first, as they were created one upon the other.
    while (!controls_.empty()) {
        controls_.pop_back();
    }
    ::InvalidateRect(Get(), nullptr, TRUE);
}

void FormSurface::Load(const FormFile& form, const PlacementSettings& settings) {
    Clear();
    settings_ = settings;
    // In run mode the Tab key goes to the windows of the controls; in design mode there are none,
    // and it stops at the form.
    const LONG_PTR style = ::GetWindowLongPtrW(Get(), GWL_EXSTYLE);
    ::SetWindowLongPtrW(Get(), GWL_EXSTYLE,
                        settings_.RunMode ? style | WS_EX_CONTROLPARENT
                                          : style & ~LONG_PTR{WS_EX_CONTROLPARENT});
    try {
        for (const FormControl& control : form.Controls) {
            controls_.push_back(std::make_unique<PlacedControl>(
                *this, control, PlacedControl::Origin::Saved, settings_));
        }
        if (settings_.RunMode) {
            for (const auto& control : controls_) {
                control->Activate();
            }
        }
    } catch (...) {
        Clear();
        throw;
    }
    if (!controls_.empty()) {
        Select(controls_.front().get());
    }
}

void FormSurface::Add(const FormControl& control) {
    controls_.push_back(
        std::make_unique<PlacedControl>(*this, control, PlacedControl::Origin::New, settings_));
    Select(controls_.back().get());
    owner_.OnFormChanged();
}

void FormSurface::RemoveSelected() {
    const auto found =
        std::ranges::find(controls_, selected_, [](const auto& control) { return control.get(); });
    if (found != controls_.end()) {
        Select(nullptr);
        controls_.erase(found);
        ::InvalidateRect(Get(), nullptr, TRUE);
        owner_.OnFormChanged();
    }
}

std::vector<FormControl> FormSurface::Save() const {
    std::vector<FormControl> saved;
    for (const auto& control : controls_) {
        saved.push_back(control->Save());
    }
    return saved;
}

void FormSurface::Select(PlacedControl* control) {
    selected_ = control;
    ::InvalidateRect(Get(), nullptr, FALSE);
    owner_.OnSelectionChanged();
}

void FormSurface::OnPropertyChanged() {
    if (!settings_.RunMode) {
        ::InvalidateRect(Get(), nullptr, FALSE);
        owner_.OnFormChanged();
    }
}

LRESULT FormSurface::OnMessage(UINT message, WPARAM first, LPARAM second) {
    const POINT point = {GET_X_LPARAM(second), GET_Y_LPARAM(second)};
    const bool isDesign = !settings_.RunMode;
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_GETDLGCODE:
        return DialogCode(first);
    case WM_LBUTTONDOWN:
        ::SetFocus(Get());
        if (isDesign) {
            BeginDrag(point);
        }
        return 0;
    case WM_MOUSEMOVE:
        if (isDesign && ::GetCapture() == Get()) {
            Drag(point);
        } else if (isDesign) {
            SetPointer(point);
        }
        return 0;
    case WM_LBUTTONUP:
        ::ReleaseCapture();
        return 0;
    case WM_LBUTTONDBLCLK:
        if (isDesign && ControlAt(point)) {
            ::ReleaseCapture();
            owner_.OnPropertyFrameWanted();
        }
        return 0;
    case WM_KEYDOWN:
        if (isDesign) {
            OnKey(first);
        }
        return 0;
    case WM_SETCURSOR:
        if (isDesign && LOWORD(second) == HTCLIENT) {
            return TRUE;
        }
        break;
    default:
        break;
    }
    return ProgramWindow::OnMessage(message, first, second);
}

void FormSurface::Paint() {
    const Win::BufferedPaint paint(Get(), COLOR_BTNFACE);
    if (settings_.RunMode) {
        return;
    }
    DrawGrid(paint.Context(), paint.Area());
    for (const auto& control : controls_) {
        control->Draw(paint.Context());
    }
    DrawSelection(paint.Context());
}

void FormSurface::DrawGrid(HDC context, const RECT& area) const {
    const int step = Scaled(GridStep);
    const COLORREF dots = ::GetSysColor(COLOR_BTNSHADOW);
    for (int y = 0; y < area.bottom; y += step) {
        for (int x = 0; x < area.right; x += step) {
            ::SetPixelV(context, x, y, dots);
        }
    }
}

void FormSurface::DrawSelection(HDC context) const {
    if (!selected_) {
        return;
    }
    const RECT& place = selected_->Place();
    // A part of the control may be of the form's colour: its edges are seen all the same.
    ::FrameRect(context, &place, ::GetSysColorBrush(COLOR_HIGHLIGHT));
    const int half = Scaled(HandleSize) / 2;
    const LONG right = place.right - 1;
    const LONG bottom = place.bottom - 1;
    const std::array<LONG, 3> across = {place.left, (place.left + right) / 2, right};
    const std::array<LONG, 3> down = {place.top, (place.top + bottom) / 2, bottom};
    for (std::size_t i = 0; i < across.size(); ++i) {
        for (std::size_t j = 0; j < down.size(); ++j) {
            if (i != 1 || j != 1) {
                const RECT handle = {across[i] - half, down[j] - half, across[i] + half + 1,
                                     down[j] + half + 1};
                ::FillRect(context, &handle, ::GetSysColorBrush(COLOR_HIGHLIGHT));
            }
        }
    }
}

PlacedControl* FormSurface::ControlAt(POINT point) const {
    // The last one lies on top.
    const auto found =
        std::find_if(controls_.rbegin(), controls_.rend(),
                     [point](const auto& control) { return ::PtInRect(&control->Place(), point); });
    return found == controls_.rend() ? nullptr : found->get();
}

FormSurface::Grip FormSurface::GripAt(POINT point) const {
    if (!selected_) {
        return {};
    }
    const int reach = Scaled(HandleSize);
    RECT around = selected_->Place();
    ::InflateRect(&around, reach, reach);
    if (!::PtInRect(&around, point)) {
        return {};
    }
    const RECT& place = selected_->Place();
    const auto isNear = [reach](LONG edge, LONG position) {
        return std::abs(edge - position) <= reach;
    };
    return {isNear(place.left, point.x), isNear(place.top, point.y), isNear(place.right, point.x),
            isNear(place.bottom, point.y)};
}

void FormSurface::SetPointer(POINT point) const {
    const Grip grip = GripAt(point);
    const bool diagonal = (grip.Left && grip.Top) || (grip.Right && grip.Bottom);
    const bool otherDiagonal = (grip.Right && grip.Top) || (grip.Left && grip.Bottom);
    const wchar_t* pointer = diagonal                  ? IDC_SIZENWSE
                             : otherDiagonal           ? IDC_SIZENESW
                             : grip.Left || grip.Right ? IDC_SIZEWE
                             : grip.Top || grip.Bottom ? IDC_SIZENS
                             : ControlAt(point)        ? IDC_SIZEALL
                                                       : IDC_ARROW;
    ::SetCursor(::LoadCursorW(nullptr, pointer));
}

void FormSurface::BeginDrag(POINT point) {
    grip_ = GripAt(point);
    if (!grip_.Any()) {
        Select(ControlAt(point));
        grip_ = {true, true, true, true};
    }
    if (selected_) {
        dragStart_ = point;
        dragPlace_ = selected_->Place();
        ::SetCapture(Get());
    }
}

void FormSurface::Drag(POINT point) {
    if (!selected_) {
        return;
    }
    const int step = Scaled(GridStep);
    const LONG dx = point.x - dragStart_.x;
    const LONG dy = point.y - dragStart_.y;
    RECT place = dragPlace_;
    if (grip_.Left && grip_.Right && grip_.Top && grip_.Bottom) {
        ::OffsetRect(&place, Snapped(place.left + dx, step) - place.left,
                     Snapped(place.top + dy, step) - place.top);
    } else {
        const int least = Scaled(SmallestSide);
        if (grip_.Left) {
            place.left = std::min(Snapped(place.left + dx, step), place.right - least);
        }
        if (grip_.Top) {
            place.top = std::min(Snapped(place.top + dy, step), place.bottom - least);
        }
        if (grip_.Right) {
            place.right = std::max(Snapped(place.right + dx, step), place.left + least);
        }
        if (grip_.Bottom) {
            place.bottom = std::max(Snapped(place.bottom + dy, step), place.top + least);
        }
    }
    PlaceSelected(place);
}

LRESULT FormSurface::DialogCode(WPARAM key) const {
    if (settings_.RunMode) {
        return 0;
    }
    return DLGC_WANTARROWS | (key == VK_TAB && NextControl() ? DLGC_WANTTAB : 0);
}

PlacedControl* FormSurface::NextControl() const {
    const bool isBackward = Win::IsPressed(VK_SHIFT);
    if (controls_.empty()) {
        return nullptr;
    }
    if (!selected_) {
        return isBackward ? controls_.back().get() : controls_.front().get();
    }
    const auto found =
        std::ranges::find(controls_, selected_, [](const auto& control) { return control.get(); });
    if (isBackward) {
        return found == controls_.begin() ? nullptr : std::prev(found)->get();
    }
    return std::next(found) == controls_.end() ? nullptr : std::next(found)->get();
}

void FormSurface::OnKey(WPARAM key) {
    if (key != VK_TAB) {
        MoveByKey(key);
    } else if (PlacedControl* const next = NextControl()) {
        Select(next);
    }
}

void FormSurface::MoveByKey(WPARAM key) {
    if (!selected_) {
        return;
    }
    const int step = Scaled(GridStep);
    const int dx = key == VK_LEFT ? -step : key == VK_RIGHT ? step : 0;
    const int dy = key == VK_UP ? -step : key == VK_DOWN ? step : 0;
    if (dx == 0 && dy == 0) {
        return;
    }
    RECT place = selected_->Place();
    if (Win::IsPressed(VK_SHIFT)) {
        const int least = Scaled(SmallestSide);
        place.right = std::max(place.right + dx, place.left + least);
        place.bottom = std::max(place.bottom + dy, place.top + least);
    } else {
        ::OffsetRect(&place, dx, dy);
    }
    PlaceSelected(place);
}

void FormSurface::PlaceSelected(const RECT& place) {
    if (!::EqualRect(&place, &selected_->Place())) {
        selected_->SetPlace(place);
        ::InvalidateRect(Get(), nullptr, FALSE);
        owner_.OnFormChanged();
    }
}

} // namespace Quorvane::Host
