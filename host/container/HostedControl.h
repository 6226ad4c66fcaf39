// SPDX-License-Identifier: MIT
// HostedControl: one control on a form, from its creation to its release.
#pragma once

#include <oaidl.h>

#include "host/container/ControlSite.h"
#include "host/container/EventSink.h"
#include "host/formfile/FormFile.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// A control in its site. Call Load or InitNew first, once. The site is given to the control before
/// that where the control asks for it (OLEMISC_SETCLIENTSITEFIRST), otherwise right after it.
/// An object that is no OLE control, such as a dictionary, is hosted without what it does not
/// offer.
class HostedControl {
  public:
    /// Takes over `object`. `name` is what the form and its script call it; it becomes the ambient
    /// DisplayName.
    HostedControl(Com::ComPtr<IUnknown> object, Text name, AmbientProperties ambients);
    HostedControl(HostedControl&&) noexcept = default;
    HostedControl& operator=(HostedControl&&) = delete;
    ~HostedControl() { Close(); }

    /// Starts a control that is new on its form. Throws Com::HresultError.
    void InitNew();

    /// Starts a control with saved properties; what it cannot read goes to `log`, which may be
    /// null. Throws Com::HresultError.
    void Load(const FormProperties& properties, IErrorLog* log);

    /// The properties as the control saves them: those that differ from their defaults, or all.
    /// Throws Com::HresultError; E_NOINTERFACE if the control cannot save to a property bag.
    FormProperties Save(bool all = false) const;

    bool CanSave() const;

    /// Sends the control's events to `handler`, in place of an earlier one.
    void ReceiveEvents(EventHandler handler);

    /// Ends the events; none arrives afterwards.
    void Disconnect() noexcept { events_.Disconnect(); }

    /// Disconnects the events, closes the control and takes its site away. Nothing may be called
    /// afterwards. Does nothing the second time.
    void Close() noexcept;

    const Text& Name() const { return name_; }
    IUnknown* Object() const { return object_.Get(); }
    ControlSite& Site() const { return *site_.Get(); }

    /// The automation interface, or null if it has none.
    Com::ComPtr<IDispatch> Dispatch() const;

  private:
    template <class Start>
    void StartInSite(Start start);
    void SetSite(IOleClientSite* site);
    bool WantsSiteFirst() const;

    Com::ComPtr<IUnknown> object_;
    Text name_;
    Com::ComPtr<ControlSite> site_;
    EventConnection events_;
};

} // namespace Quorvane::Host
