// SPDX-License-Identifier: MIT
// In-place activation: when a control has a window in its host's, and when it has the user.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComPtr.h"

namespace Quorvane::Com {

class ControlCore;

/// A control is loaded, then in-place active (it has a window), then UI active (keys are its).
/// Every step back can be asked for at any time and in any order; a step to where the control
/// stands already does nothing. Hosts call back in the middle of each.
class Activation {
  public:
    explicit Activation(ControlCore& core) noexcept : core_(core) {}

    bool IsActive() const noexcept { return state_ != State::Loaded; }
    bool IsUIActive() const noexcept { return state_ == State::UIActive; }

    /// Makes the window and shows it. `parent` and `position` are for hosts whose site does not say
    /// them; both may be null. Returns what the host refuses with; throws what the window does.
    HRESULT Activate(HWND parent, const RECT* position);

    /// Activates, and takes the keyboard focus, at the end where the key in `message` enters.
    HRESULT ActivateUI(HWND parent, const RECT* position, const MSG* message);

    /// Hides the window, which stays.
    void Hide() noexcept;

    void UIDeactivate() noexcept;

    /// Takes the window away.
    void InPlaceDeactivate() noexcept;

    /// Takes the window away and forgets the host without a word to it.
    void Abandon() noexcept;

    /// Moves the window, and cuts it to `clip`; a null or empty `clip` does not cut.
    void SetRects(const RECT& position, const RECT* clip) noexcept;

    /// Lets the user reach the window, or not, as the host's ambient property UIDead says. Throws
    /// HresultError where the host cannot be asked.
    void FollowUIDead();

    /// The keyboard focus has come to the window or left it.
    void OnFocus(bool focused);

    /// A key that the host offers before it uses it itself: S_OK where it was taken.
    HRESULT TranslateAccelerator(const MSG* message);

    /// The frame of the host; null while the control is not active.
    const ComPtr<IOleInPlaceFrame>& Frame() const noexcept { return frame_; }

  private:
    enum class State { Loaded, Active, UIActive };

    static HRESULT Enter(IOleInPlaceSite& site);
    void MakeWindow(HWND parent, const RECT* position);
    static bool MayBecomeUIActive(IOleInPlaceSite& site) noexcept;
    HRESULT BecomeUIActive();
    void SetActiveObject(IOleInPlaceActiveObject* object) noexcept;

    ControlCore& core_;
    State state_ = State::Loaded;
    ComPtr<IOleInPlaceSite> site_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
};

/// While it lives, the host keeps its modeless windows from the user, who answers a modal box of
/// the control's. Nothing happens where the control is not active: its host's frame is not known.
class ModelessPause {
  public:
    explicit ModelessPause(const Activation& activation) noexcept;
    ~ModelessPause();
    ModelessPause(const ModelessPause&) = delete;
    ModelessPause& operator=(const ModelessPause&) = delete;

  private:
    /// Held: the control may be deactivated while the box is open.
    ComPtr<IOleInPlaceFrame> frame_;
};

} // namespace Quorvane::Com
