// SPDX-License-Identifier: MIT
// In-place activation.
#include "com/Activation.h"

#include <ocidl.h>

#include <utility>

#include "com/ControlCore.h"
#include "com/ErrorBoundary.h"
#include "win/Dpi.h"
#include "win/Keyboard.h"

namespace Quorvane::Com {
namespace {

bool IsShiftTab(const MSG* message) noexcept {
    return message && message->message == WM_KEYDOWN && message->wParam == VK_TAB &&
           Win::IsPressed(VK_SHIFT);
}

/// The modifiers of IOleControlSite::TranslateAccelerator.
DWORD KeyModifiers() noexcept {
    constexpr DWORD Shift = 1;
    constexpr DWORD Control = 2;
    constexpr DWORD Alt = 4;
    return (Win::IsPressed(VK_SHIFT) ? Shift : 0) | (Win::IsPressed(VK_CONTROL) ? Control : 0) |
           (Win::IsPressed(VK_MENU) ? Alt : 0);
}

/// The control's own size at the corner of its parent, for a host that names no place.
RECT NaturalPosition(const SIZEL& extent) noexcept {
    const int dpi = Win::DpiOf(HWND{nullptr});
    return {0, 0, Win::PixelsOfHimetric(extent.cx, dpi), Win::PixelsOfHimetric(extent.cy, dpi)};
}

} // namespace

HRESULT Activation::Enter(IOleInPlaceSite& site) {
    if (const auto extended = Query<IOleInPlaceSiteEx>(&site)) {
        BOOL noRedraw = FALSE;
        const HRESULT result = extended->OnInPlaceActivateEx(&noRedraw, 0);
        if (result != E_NOTIMPL) {
            return result;
        }
    }
    return site.OnInPlaceActivate();
}

void Activation::MakeWindow(HWND parent, const RECT* position) {
    const auto site = site_;
    HWND holder = nullptr;
    if (FAILED(site->GetWindow(&holder)) || !holder) {
        holder = parent;
    }
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    // Some hosts fill in only some of these, whatever they return.
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    site->GetWindowContext(frame.Put(), document.Put(), &place, &clip, &info);
    if (::IsRectEmpty(&place)) {
        place = position ? *position : NaturalPosition(core_.Extent());
    }
    if (!IsActive() || !site_) {
        // The host has deactivated meanwhile.
        throw HresultError(E_UNEXPECTED);
    }
    frame_ = std::move(frame);
    document_ = std::move(document);
    core_.OpenWindow(holder, place);
    FollowUIDead();
    SetRects(place, &clip);
    ::ShowWindow(core_.Window(), SW_SHOWNA);
}

HRESULT Activation::Activate(HWND parent, const RECT* position) {
    const auto alive = core_.SelfReference();
    if (IsActive() && !core_.Window()) {
        // The host's window has taken ours along.
        InPlaceDeactivate();
    }
    if (IsActive()) {
        ::ShowWindow(core_.Window(), SW_SHOWNA);
        return S_OK;
    }
    core_.StartIfNeeded();
    const auto clientSite = core_.Site().Get();
    const auto site = clientSite.As<IOleInPlaceSite>();
    if (!site) {
        return OLEOBJ_S_CANNOT_DOVERB_NOW;
    }
    if (site->CanInPlaceActivate() != S_OK) {
        return E_FAIL;
    }
    // Active before the host hears of it: it may deactivate at once.
    state_ = State::Active;
    site_ = site;
    const HRESULT entered = Enter(*site);
    if (FAILED(entered)) {
        Abandon();
        return entered;
    }
    if (!site_) {
        return E_UNEXPECTED;
    }
    try {
        MakeWindow(parent, position);
    } catch (...) {
        InPlaceDeactivate();
        throw;
    }
    if (!IsActive()) {
        return E_UNEXPECTED;
    }
    clientSite->ShowObject();
    return S_OK;
}

void Activation::SetActiveObject(IOleInPlaceActiveObject* object) noexcept {
    const auto frame = frame_;
    const auto document = document_;
    // No name, and no tools round the window: a control has no menus of its own.
    if (frame) {
        frame->SetActiveObject(object, nullptr);
    }
    if (document) {
        document->SetActiveObject(object, nullptr);
    }
    if (object && frame) {
        frame->SetBorderSpace(nullptr);
    }
    if (object && document) {
        document->SetBorderSpace(nullptr);
    }
}

/// Whether the host lets the control become UI active; it is told when it has kept the control
/// from it, as it may have to give the focus back.
bool Activation::MayBecomeUIActive(IOleInPlaceSite& site) noexcept {
    const auto extended = Query<IOleInPlaceSiteEx>(&site);
    if (!extended || extended->RequestUIActivate() != S_FALSE) {
        return true;
    }
    site.OnUIDeactivate(FALSE);
    return false;
}

HRESULT Activation::BecomeUIActive() {
    const auto site = site_;
    if (!MayBecomeUIActive(*site)) {
        return OLEOBJ_S_CANNOT_DOVERB_NOW;
    }
    if (!IsActive() || site != site_) {
        // The host has deactivated meanwhile.
        return E_UNEXPECTED;
    }
    state_ = State::UIActive;
    const HRESULT result = site->OnUIActivate();
    if (FAILED(result)) {
        state_ = IsActive() ? State::Active : State::Loaded;
        return result;
    }
    if (IsUIActive()) {
        SetActiveObject(Query<IOleInPlaceActiveObject>(core_.Unknown()).Get());
    }
    return S_OK;
}

HRESULT Activation::ActivateUI(HWND parent, const RECT* position, const MSG* message) {
    const auto alive = core_.SelfReference();
    const HRESULT result = Activate(parent, position);
    if (result != S_OK || !IsActive()) {
        return result;
    }
    if (!IsUIActive()) {
        const HRESULT active = BecomeUIActive();
        if (active != S_OK) {
            return active;
        }
    }
    HWND const focus = ::GetFocus();
    HWND const window = core_.Window();
    if (IsUIActive() && window && focus != window && !::IsChild(window, focus)) {
        core_.TakeFocus(!IsShiftTab(message));
    }
    return S_OK;
}

void Activation::Hide() noexcept {
    const auto alive = core_.SelfReference();
    UIDeactivate();
    if (HWND const window = core_.Window()) {
        ::ShowWindow(window, SW_HIDE);
    }
}

void Activation::UIDeactivate() noexcept {
    if (!IsUIActive()) {
        return;
    }
    const auto alive = core_.SelfReference();
    const auto site = site_;
    state_ = State::Active;
    SetActiveObject(nullptr);
    site->OnUIDeactivate(FALSE);
}

void Activation::InPlaceDeactivate() noexcept {
    if (!IsActive()) {
        return;
    }
    const auto alive = core_.SelfReference();
    UIDeactivate();
    if (!IsActive()) {
        return;
    }
    const auto site = std::exchange(site_, {});
    Abandon();
    site->OnInPlaceDeactivate();
}

void Activation::Abandon() noexcept {
    state_ = State::Loaded;
    core_.CloseWindow();
    const auto site = std::exchange(site_, {});
    const auto frame = std::exchange(frame_, {});
    const auto document = std::exchange(document_, {});
}

void Activation::SetRects(const RECT& position, const RECT* clip) noexcept {
    HWND const window = core_.Window();
    if (!window) {
        return;
    }
    HRGN region = nullptr;
    if (clip && !::IsRectEmpty(clip)) {
        RECT visible{};
        ::IntersectRect(&visible, &position, clip);
        if (!::EqualRect(&visible, &position)) {
            ::OffsetRect(&visible, -position.left, -position.top);
            region = ::CreateRectRgnIndirect(&visible);
        }
    }
    RECT former{};
    // To take no region away takes as long as to take one.
    if (region || ::GetWindowRgnBox(window, &former) != ERROR) {
        // The window owns the region from here on.
        ::SetWindowRgn(window, region, TRUE);
    }
    ::SetWindowPos(window, nullptr, position.left, position.top, position.right - position.left,
                   position.bottom - position.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Activation::FollowUIDead() {
    HWND const window = core_.Window();
    if (!window) {
        return;
    }
    const bool isDead = core_.Site().IsUIDead();
    if (!::IsWindow(window)) {
        return;
    }
    HWND const focus = ::GetFocus();
    if (isDead && (focus == window || ::IsChild(window, focus))) {
        // A window that is disabled keeps the keys that go to its children.
        ::SetFocus(::GetParent(window));
    }
    ::EnableWindow(window, !isDead);
}

void Activation::OnFocus(bool focused) {
    const auto alive = core_.SelfReference();
    if (focused && IsActive() && !IsUIActive()) {
        BecomeUIActive();
    }
    if (const auto site = core_.Site().Get().As<IOleControlSite>()) {
        site->OnFocus(focused);
    }
}

HRESULT Activation::TranslateAccelerator(const MSG* message) {
    const auto alive = core_.SelfReference();
    if (!message || message->message < WM_KEYFIRST || message->message > WM_KEYLAST) {
        return S_FALSE;
    }
    if (core_.TranslateKey(*message)) {
        return S_OK;
    }
    const auto site = core_.Site().Get().As<IOleControlSite>();
    if (!site) {
        return S_FALSE;
    }
    MSG copy = *message;
    return site->TranslateAccelerator(&copy, KeyModifiers()) == S_OK ? S_OK : S_FALSE;
}

ModelessPause::ModelessPause(const Activation& activation) noexcept : frame_(activation.Frame()) {
    if (frame_) {
        frame_->EnableModeless(FALSE);
    }
}

ModelessPause::~ModelessPause() {
    if (frame_) {
        frame_->EnableModeless(TRUE);
    }
}

} // namespace Quorvane::Com
