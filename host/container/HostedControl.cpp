// SPDX-License-Identifier: MIT
// HostedControl: one control on a form, from its creation to its release.
#include "host/container/HostedControl.h"

#include <oleidl.h>

#include "com/FailedCall.h"
#include "host/container/PropertyBag.h"

namespace Quorvane::Host {
namespace {

// No event is to arrive while a control loads.
class FrozenEvents {
  public:
    explicit FrozenEvents(IUnknown* object) : control_(Com::Query<IOleControl>(object)) {
        if (control_) {
            control_->FreezeEvents(TRUE);
        }
    }
    FrozenEvents(const FrozenEvents&) = delete;
    FrozenEvents& operator=(const FrozenEvents&) = delete;
    ~FrozenEvents() {
        if (control_) {
            control_->FreezeEvents(FALSE);
        }
    }

  private:
    Com::ComPtr<IOleControl> control_;
};

HRESULT InitObject(IUnknown* object) {
    if (const auto bag = Com::Query<IPersistPropertyBag>(object)) {
        return bag->InitNew();
    }
    if (const auto stream = Com::Query<IPersistStreamInit>(object)) {
        return stream->InitNew();
    }
    return S_OK;
}

} // namespace

HostedControl::HostedControl(Com::ComPtr<IUnknown> object, Text name, AmbientProperties ambients)
    : object_(std::move(object)), name_(std::move(name)) {
    ambients.Set(DISPID_AMBIENT_DISPLAYNAME, Com::Variant(TextView(name_)));
    site_ = Com::MakeObject<ControlSite>(std::move(ambients));
}

template <class Start>
void HostedControl::StartInSite(Start start) {
    const FrozenEvents frozen(object_.Get());
    const bool siteFirst = WantsSiteFirst();
    if (siteFirst) {
        SetSite(site_.Get());
    }
    start();
    if (!siteFirst) {
        SetSite(site_.Get());
    }
}

void HostedControl::InitNew() {
    StartInSite([&] { Com::Check(InitObject(object_.Get()), u"initialise " + name_); });
}

void HostedControl::Load(const FormProperties& properties, IErrorLog* log) {
    const auto persist = Com::Query<IPersistPropertyBag>(object_.Get());
    if (!persist && !properties.IsEmpty()) {
        Com::Fail(E_NOINTERFACE, u"load " + name_, u"its class keeps no properties");
    }
    StartInSite([&] {
        const auto bag = Com::MakeObject<PropertyBag>(properties);
        // Otherwise an error text of an earlier call could be taken for this one's.
        ::SetErrorInfo(0, nullptr);
        Com::Check(persist ? persist->Load(bag.Get(), log) : InitObject(object_.Get()),
                   u"load " + name_);
    });
}

FormProperties HostedControl::Save(bool all) const {
    const auto persist = Com::Query<IPersistPropertyBag>(object_.Get());
    if (!persist) {
        Com::Fail(E_NOINTERFACE, u"save " + name_, u"its class keeps no properties");
    }
    const auto bag = Com::MakeObject<PropertyBag>();
    Com::Check(persist->Save(bag.Get(), TRUE, all ? TRUE : FALSE), u"save " + name_);
    return bag->Properties();
}

bool HostedControl::CanSave() const {
    return Com::Query<IPersistPropertyBag>(object_.Get()) != nullptr;
}

void HostedControl::ReceiveEvents(EventHandler handler) {
    events_ = EventConnection(object_.Get(), std::move(handler));
}

void HostedControl::Close() noexcept {
    if (!object_) {
        return;
    }
    events_.Disconnect();
    if (const auto ole = Com::Query<IOleObject>(object_.Get())) {
        ole->Close(OLECLOSE_NOSAVE);
        ole->SetClientSite(nullptr);
    }
    object_.Reset();
}

Com::ComPtr<IDispatch> HostedControl::Dispatch() const {
    return Com::Query<IDispatch>(object_.Get());
}

void HostedControl::SetSite(IOleClientSite* site) {
    if (const auto ole = Com::Query<IOleObject>(object_.Get())) {
        Com::Check(ole->SetClientSite(site), u"place " + name_ + u" on the form");
    }
}

bool HostedControl::WantsSiteFirst() const {
    DWORD status = 0;
    const auto ole = Com::Query<IOleObject>(object_.Get());
    return ole && SUCCEEDED(ole->GetMiscStatus(DVASPECT_CONTENT, &status)) &&
           (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
}

} // namespace Quorvane::Host
