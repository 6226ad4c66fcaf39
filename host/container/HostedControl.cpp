// SPDX-License-Identifier: MIT
// HostedControl: one control on a form, from its creation to its release.
#include "host/container/HostedControl.h"

#include "host/container/HResult.h"
#include "host/container/PropertyBag.h"

#include <oleidl.h>

namespace Quorvane::Host {

namespace {

// No event is to arrive while a control loads.
class FrozenEvents {
  public:
    explicit FrozenEvents(IUnknown* object) : control_(Query<IOleControl>(object)) {
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
    ComPtr<IOleControl> control_;
};

HRESULT InitObject(IUnknown* object) {
    if (const auto bag = Query<IPersistPropertyBag>(object)) {
        return bag->InitNew();
    }
    if (const auto stream = Query<IPersistStreamInit>(object)) {
        return stream->InitNew();
    }
    return S_OK;
}

} // namespace

HostedControl::HostedControl(ComPtr<IUnknown> object, std::wstring name, AmbientProperties ambients)
    : object_(std::move(object)), name_(std::move(name)) {
    ambients.Set(DISPID_AMBIENT_DISPLAYNAME, Variant(std::wstring_view(name_)));
    site_ = MakeCom<ControlSite>(std::move(ambients));
}

template <typename Start>
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
    StartInSite([&] { Check(InitObject(object_.Get()), L"initialise " + name_); });
}

void HostedControl::Load(const FormProperties& properties, IErrorLog* log) {
    const auto persist = Query<IPersistPropertyBag>(object_.Get());
    if (!persist && !properties.IsEmpty()) {
        Fail(E_NOINTERFACE, L"load " + name_, L"its class keeps no properties");
    }
    StartInSite([&] {
        const auto bag = MakeCom<PropertyBag>(properties);
        // Otherwise an error text of an earlier call could be taken for this one's.
        SetErrorInfo(0, nullptr);
        Check(persist ? persist->Load(bag.Get(), log) : InitObject(object_.Get()),
              L"load " + name_);
    });
}

FormProperties HostedControl::Save(bool all) const {
    const auto persist = Query<IPersistPropertyBag>(object_.Get());
    if (!persist) {
        Fail(E_NOINTERFACE, L"save " + name_, L"its class keeps no properties");
    }
    const auto bag = MakeCom<PropertyBag>();
    Check(persist->Save(bag.Get(), TRUE, all ? TRUE : FALSE), L"save " + name_);
    return bag->Properties();
}

bool HostedControl::CanSave() const {
    return Query<IPersistPropertyBag>(object_.Get()) != nullptr;
}

void HostedControl::ReceiveEvents(EventHandler handler) {
    events_ = EventConnection(object_.Get(), std::move(handler));
}

void HostedControl::Close() noexcept {
    if (!object_) {
        return;
    }
    events_.Disconnect();
    if (const auto ole = Query<IOleObject>(object_.Get())) {
        ole->Close(OLECLOSE_NOSAVE);
        ole->SetClientSite(nullptr);
    }
    object_.Reset();
}

ComPtr<IDispatch> HostedControl::Dispatch() const {
    return Query<IDispatch>(object_.Get());
}

void HostedControl::SetSite(IOleClientSite* site) {
    if (const auto ole = Query<IOleObject>(object_.Get())) {
        Check(ole->SetClientSite(site), L"place " + name_ + L" on the form");
    }
}

bool HostedControl::WantsSiteFirst() const {
    DWORD status = 0;
    const auto ole = Query<IOleObject>(object_.Get());
    return ole && SUCCEEDED(ole->GetMiscStatus(DVASPECT_CONTENT, &status)) &&
           (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
}

} // namespace Quorvane::Host
