// SPDX-License-Identifier: MIT
// A test's form: a window with one control on it, put there and taken away as a host does.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComPtr.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/windows/support/Site.h"

namespace Quorvane {

/// How a form starts its control.
enum class Start { New, FromEmptyBag, Not };

/// A form, shown on the screen, with a control in it. The control is closed with the form.
class Form {
  public:
    /// The control is at `position` in pixels of the form's client area.
    explicit Form(const RECT& position = {10, 10, 330, 210}, int show = SW_SHOW);
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    HWND Window() const { return window_; }

    /// Waits until the form is to be seen, which the display's window manager decides. False where
    /// it does not come.
    bool WaitUntilSeen() const;

    Site& TheSite() const { return *site_; }
    CallRecord& Calls() const { return site_->Calls; }
    const Com::ComPtr<_FISControl>& Control() const { return control_; }

    /// The control's interface I. Throws HresultError where it has none such.
    template <class I>
    Com::ComPtr<I> As() const {
        Com::ComPtr<I> result;
        Com::Check(control_->QueryInterface(__uuidof(I), result.PutVoid()));
        return result;
    }

    /// Makes the control, gives it the site and starts it. Design mode where `userMode` is false.
    void Place(Start start = Start::FromEmptyBag, bool userMode = true);

    /// Puts an existing control on the form in the same way.
    void Place(Com::ComPtr<_FISControl> control, Start start = Start::FromEmptyBag);

    /// Runs a verb as the host would.
    HRESULT DoVerb(LONG verb, MSG* message = nullptr);

    /// Activates the control in place.
    void Activate() { Com::Check(DoVerb(OLEIVERB_INPLACEACTIVATE)); }

    /// Moves the control.
    void Move(const RECT& position);

    void SetAmbient(DISPID property, Com::Variant value, DISPID told);

    /// Closes the control, takes its site away and releases it.
    void Remove();

    /// Releases the control without a word, as a host does that has crashed half-way.
    void Forget() { control_.Reset(); }

    // The windows of the control.
    HWND Surface() const;
    HWND Strip() const;
    HWND Label() const;
    HWND Input() const;
    HWND Output() const;
    HWND Status() const;

  private:
    HWND window_;
    Com::ComPtr<Site> site_;
    Com::ComPtr<_FISControl> control_;
};

/// A new object of this program's own copy of a class, aggregated where `outer` is not null.
Com::ComPtr<IUnknown> NewObject(const CLSID& clsid, IUnknown* outer = nullptr);

/// A new control, in the same way.
Com::ComPtr<IUnknown> NewControl(IUnknown* outer = nullptr);

/// Handles the messages that are waiting, as a host's loop does.
void HandleMessages();

/// The text of a list's cell, and of a list's column header.
Text CellText(HWND list, int row, int column);
Text HeaderText(HWND list, int column);

/// The text of a status bar's first panel.
Text PanelText(HWND statusBar);

/// A window's rectangle in its parent's client area.
RECT PlaceOf(HWND window);

} // namespace Quorvane
