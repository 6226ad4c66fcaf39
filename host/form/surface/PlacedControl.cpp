// SPDX-License-Identifier: MIT
// PlacedControl: one control on the form's window, from its creation to its release.
#include "host/form/surface/PlacedControl.h"

#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/container/ControlClass.h"
#include "host/container/PropertyBag.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane::Host {
namespace {

struct PlacementKey {
    const char16_t* Key;
    int Default;
};

constexpr PlacementKey LeftKey{u"Left", 120};
constexpr PlacementKey TopKey{u"Top", 120};
constexpr PlacementKey WidthKey{u"Width", 6000};
constexpr PlacementKey HeightKey{u"Height", 4500};

int ToPixels(int twips, int dpi) {
    return ::MulDiv(twips, dpi, Win::TwipsPerInch);
}

int ToTwips(int pixels, int dpi) {
    return ::MulDiv(pixels, Win::TwipsPerInch, dpi);
}

FormProperties WithoutPlacement(const FormProperties& properties) {
    FormProperties own;
    for (const FormProperty& property : properties) {
        if (!IsPlacementKey(property.Key)) {
            own.Set(property);
        }
    }
    return own;
}

AmbientProperties AmbientsFor(const Text& name, const PlacementSettings& settings) {
    AmbientProperties ambients = AmbientProperties::OfAnOrdinaryForm();
    ambients.Set(DISPID_AMBIENT_USERMODE, Com::Variant(settings.RunMode));
    ambients.Set(DISPID_AMBIENT_DISPLAYNAME, Com::Variant(TextView(name)));
    if (settings.Locale) {
        ambients.Set(DISPID_AMBIENT_LOCALEID, Com::Variant(static_cast<LONG>(*settings.Locale)));
    }
    return ambients;
}

bool WantsSiteFirst(IOleObject* object) {
    DWORD status = 0;
    return object && SUCCEEDED(object->GetMiscStatus(DVASPECT_CONTENT, &status)) &&
           (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
}

} // namespace

/// Hears of changed properties.
class PlacedControl::PropertySink final : public Com::ComObject<IPropertyNotifySink> {
  public:
    explicit PropertySink(PlacedControlOwner& owner) : owner_(&owner) {}
    void Detach() { owner_ = nullptr; }

    STDMETHODIMP OnChanged(DISPID) noexcept override {
        if (owner_) {
            owner_->OnPropertyChanged();
        }
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

  private:
    ~PropertySink() override = default;

    PlacedControlOwner* owner_;
};

int PlacementOf(const FormProperties& properties, TextView key, int byDefault) {
    const FormProperty* const property = properties.Find(key);
    if (!property) {
        return byDefault;
    }
    if (const auto* const whole = std::get_if<std::int32_t>(&property->Value)) {
        return *whole;
    }
    const auto* const number = std::get_if<double>(&property->Value);
    return number ? static_cast<int>(*number) : byDefault;
}

PlacedControl::PlacedControl(PlacedControlOwner& owner, const FormControl& control, Origin origin,
                             const PlacementSettings& settings)
    : owner_(owner), class_(control.Class), name_(control.Name),
      object_(CreateControl(settings.Dll, control.Class)),
      site_(Com::MakeObject<InPlaceSite>(*this, AmbientsFor(name_, settings))) {
    const int dpi = Win::DpiOf(owner_.ControlWindow());
    const auto pixels = [&](const PlacementKey& key) {
        return ToPixels(PlacementOf(control.Properties, key.Key, key.Default), dpi);
    };
    place_ = {pixels(LeftKey), pixels(TopKey), pixels(LeftKey) + pixels(WidthKey),
              pixels(TopKey) + pixels(HeightKey)};
    try {
        Start(control, origin, settings.RunMode);
    } catch (...) {
        site_->Detach();
        throw;
    }
}

void PlacedControl::Start(const FormControl& control, Origin origin, bool runMode) {
    const auto ole = Com::Query<IOleObject>(object_.Get());
    const bool siteFirst = WantsSiteFirst(ole.Get());
    if (ole && siteFirst) {
        Com::Check(ole->SetClientSite(site_.Get()), u"place " + name_ + u" on the form");
    }
    if (const auto persist = Com::Query<IPersistPropertyBag>(object_.Get())) {
        const auto bag = Com::MakeObject<PropertyBag>(WithoutPlacement(control.Properties));
        ::SetErrorInfo(0, nullptr);
        Com::Check(origin == Origin::New ? persist->InitNew() : persist->Load(bag.Get(), nullptr),
                   u"load " + name_);
    }
    if (ole && !siteFirst) {
        Com::Check(ole->SetClientSite(site_.Get()), u"place " + name_ + u" on the form");
    }
    TellExtent();
    if (runMode) {
        events_ = EventConnection(object_.Get(), [this](const Text& event, DISPPARAMS&) {
            owner_.OnControlEvent(name_, event);
        });
    }
    const auto container = Com::Query<IConnectionPointContainer>(object_.Get());
    if (container && SUCCEEDED(container->FindConnectionPoint(__uuidof(IPropertyNotifySink),
                                                              propertyPoint_.Put()))) {
        propertySink_ = Com::MakeObject<PropertySink>(owner_);
        propertyPoint_->Advise(propertySink_.Get(), &propertyCookie_);
    }
}

PlacedControl::~PlacedControl() {
    events_.Disconnect();
    if (propertySink_) {
        propertySink_->Detach();
        propertyPoint_->Unadvise(propertyCookie_);
    }
    if (const auto ole = Com::Query<IOleObject>(object_.Get())) {
        ole->Close(OLECLOSE_NOSAVE);
        ole->SetClientSite(nullptr);
    }
    object_.Reset();
    site_->Detach();
}

void PlacedControl::SetPlace(const RECT& place) {
    place_ = place;
    TellExtent();
    if (const auto inPlace = Com::Query<IOleInPlaceObject>(object_.Get())) {
        inPlace->SetObjectRects(&place_, &place_);
    }
}

void PlacedControl::TellExtent() {
    if (const auto ole = Com::Query<IOleObject>(object_.Get())) {
        const int dpi = Win::DpiOf(owner_.ControlWindow());
        SIZEL extent = {Win::HimetricOfPixels(place_.right - place_.left, dpi),
                        Win::HimetricOfPixels(place_.bottom - place_.top, dpi)};
        ole->SetExtent(DVASPECT_CONTENT, &extent);
    }
}

FormControl PlacedControl::Save() const {
    FormControl control{class_, name_, {}};
    const int dpi = Win::DpiOf(owner_.ControlWindow());
    const auto set = [&](const PlacementKey& key, LONG pixels) {
        control.Properties.Set({key.Key, ToTwips(pixels, dpi)});
    };
    set(LeftKey, place_.left);
    set(TopKey, place_.top);
    set(WidthKey, place_.right - place_.left);
    set(HeightKey, place_.bottom - place_.top);
    if (const auto persist = Com::Query<IPersistPropertyBag>(object_.Get())) {
        const auto bag = Com::MakeObject<PropertyBag>();
        Com::Check(persist->Save(bag.Get(), TRUE, FALSE), u"save " + name_);
        for (const FormProperty& property : bag->Properties()) {
            control.Properties.Set(property);
        }
    }
    return control;
}

void PlacedControl::Activate() {
    Com::Check(DoVerb(OLEIVERB_INPLACEACTIVATE), u"activate " + name_);
}

void PlacedControl::FocusControl() {
    DoVerb(OLEIVERB_UIACTIVATE);
}

void PlacedControl::Draw(HDC context) const {
    RECT place = place_;
    if (FAILED(::OleDraw(object_.Get(), DVASPECT_CONTENT, context, &place))) {
        ::FrameRect(context, &place, ::GetSysColorBrush(COLOR_GRAYTEXT));
        ::DrawTextW(context, Win::Wide(name_), -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
}

HRESULT PlacedControl::DoVerb(LONG verb) {
    const auto ole = Com::Query<IOleObject>(object_.Get());
    return ole ? ole->DoVerb(verb, nullptr, site_.Get(), 0, owner_.ControlWindow(), &place_)
               : E_NOINTERFACE;
}

} // namespace Quorvane::Host
