// SPDX-License-Identifier: MIT
// What a control has in common over all its OLE interfaces, and what its class adds to them.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <span>

#include "com/Activation.h"
#include "com/AdviseSinks.h"
#include "com/ClientSite.h"
#include "com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane::Com {

/// What a property browser is told of one property.
struct BrowsedProperty {
    DISPID Id;
    /// One of the platform's categories of properties, PROPCAT_...
    int Category;
    /// The page that edits it; null for none.
    const CLSID* Page;
};

/// The unchanging facts of a control class.
struct ControlTraits {
    const CLSID* Clsid;
    /// What a person reads of the class where the registry says nothing.
    TextView UserType;
    /// What a menu offers for the property pages.
    TextView PropertiesVerb;
    /// The OLEMISC bits.
    DWORD MiscStatus;
    std::span<const CLSID> PropertyPages;
    std::span<const BrowsedProperty> Properties;
};

/// The base of a control class. The mix-ins of this folder (OleObject, ViewObject ...) work on it;
/// the class overrides the functions that say what is special about it.
class ControlCore {
  public:
    ControlCore(const ControlCore&) = delete;
    ControlCore& operator=(const ControlCore&) = delete;

    ClientSite& Site() noexcept { return site_; }
    const ClientSite& Site() const noexcept { return site_; }
    AdviseSinks& Sinks() noexcept { return sinks_; }
    Activation& InPlace() noexcept { return activation_; }

    /// The size in HIMETRIC.
    const SIZEL& Extent() const noexcept { return extent_; }
    void SetExtent(const SIZEL& extent);

    /// A reference that keeps the control alive through a call in which the host may release it.
    ComPtr<IUnknown> SelfReference() noexcept { return {Unknown()}; }

    /// Tells the sinks of the host that the control looks different.
    void ViewChanged() noexcept { sinks_.ViewChanged(Unknown()); }

    /// Ends what keeps host and control together: in-place activation, saving what the host wants
    /// saved (an OLECLOSE constant), and the sinks' being told.
    void Close(DWORD saveOption);

    /// Takes another site, or none. Deactivates first where the control is active in the former.
    void SetSite(IOleClientSite* site);

    // What the class says of itself.
    virtual const ControlTraits& Traits() const noexcept = 0;
    /// The controlling IUnknown, not counted.
    virtual IUnknown* Unknown() noexcept = 0;
    /// The control's form in a stream; it is also that in a storage.
    virtual IPersistStreamInit& StreamForm() noexcept = 0;
    /// The host has what is to be kept of the control: nothing has changed since.
    virtual void SetClean() noexcept = 0;

    /// The host is about to activate the control. One that it has neither initialised nor loaded
    /// starts as a new one. Throws HresultError.
    virtual void StartIfNeeded() = 0;

    // The window of the class.
    /// Makes the window, hidden, at a position in the parent, in pixels. Throws.
    virtual void OpenWindow(HWND parent, const RECT& position) = 0;
    virtual void CloseWindow() noexcept = 0;
    /// Null while there is none.
    virtual HWND Window() const noexcept = 0;
    /// Gives the keyboard focus to the first, or the last, place in the window that takes it.
    virtual void TakeFocus(bool first) noexcept = 0;
    /// Handles a key that the control keeps from its host; false for any other.
    virtual bool TranslateKey(const MSG& message) noexcept = 0;

    // The rest of its face.
    /// Draws the control into the rectangle, in the logical units of the device context, which may
    /// be recording a metafile.
    virtual void Draw(HDC context, const RECT& bounds) = 0;
    /// An ambient property of the host has changed; DISPID_UNKNOWN for several.
    virtual void AmbientChanged(DISPID property) = 0;
    /// The size has changed.
    virtual void ExtentChanged() = 0;
    /// Raises no events from here on, or again: freezes are counted.
    virtual void Freeze(bool freeze) noexcept = 0;

  protected:
    explicit ControlCore(SIZEL extent) noexcept : activation_(*this), extent_(extent) {}
    ~ControlCore() = default;

  private:
    ClientSite site_;
    AdviseSinks sinks_;
    Activation activation_;
    SIZEL extent_;
};

/// The base of every mix-in: where it finds the control that it is part of.
class ControlMixin {
  protected:
    virtual ControlCore& Core() noexcept = 0;
    ~ControlMixin() = default;
};

} // namespace Quorvane::Com
