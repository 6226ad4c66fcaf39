// SPDX-License-Identifier: MIT
// AmbientProperties: what the form tells its controls about their surroundings.
#include "host/container/AmbientProperties.h"

#include <cwchar>

#include "com/ErrorBoundary.h"
#include "host/container/FormFont.h"

namespace Quorvane::Host {
namespace {

struct NamedAmbient {
    const wchar_t* Name;
    DISPID Id;
};

constexpr NamedAmbient NamedAmbients[] = {
    {L"BackColor", DISPID_AMBIENT_BACKCOLOR},
    {L"DisplayName", DISPID_AMBIENT_DISPLAYNAME},
    {L"Font", DISPID_AMBIENT_FONT},
    {L"ForeColor", DISPID_AMBIENT_FORECOLOR},
    {L"LocaleID", DISPID_AMBIENT_LOCALEID},
    {L"MessageReflect", DISPID_AMBIENT_MESSAGEREFLECT},
    {L"ScaleUnits", DISPID_AMBIENT_SCALEUNITS},
    {L"TextAlign", DISPID_AMBIENT_TEXTALIGN},
    {L"UserMode", DISPID_AMBIENT_USERMODE},
    {L"UIDead", DISPID_AMBIENT_UIDEAD},
    {L"ShowGrabHandles", DISPID_AMBIENT_SHOWGRABHANDLES},
    {L"ShowHatching", DISPID_AMBIENT_SHOWHATCHING},
    {L"DisplayAsDefault", DISPID_AMBIENT_DISPLAYASDEFAULT},
    {L"SupportsMnemonics", DISPID_AMBIENT_SUPPORTSMNEMONICS},
    {L"AutoClip", DISPID_AMBIENT_AUTOCLIP},
    {L"Appearance", DISPID_AMBIENT_APPEARANCE},
};

Com::Variant SystemColor(int index) {
    return Com::Variant(static_cast<LONG>(0x80000000U + unsigned(index)));
}

} // namespace

AmbientProperties AmbientProperties::OfAnOrdinaryForm() {
    AmbientProperties ambients;
    ambients.Set(DISPID_AMBIENT_USERMODE, Com::Variant(true));
    ambients.Set(DISPID_AMBIENT_LOCALEID, Com::Variant(static_cast<LONG>(::GetUserDefaultLCID())));
    ambients.Set(DISPID_AMBIENT_FONT, Com::Variant(static_cast<IDispatch*>(DefaultFont().Get())));
    ambients.Set(DISPID_AMBIENT_BACKCOLOR, SystemColor(COLOR_BTNFACE));
    ambients.Set(DISPID_AMBIENT_FORECOLOR, SystemColor(COLOR_BTNTEXT));
    ambients.Set(DISPID_AMBIENT_SCALEUNITS, Com::Variant(u"Twip"));
    ambients.Set(DISPID_AMBIENT_UIDEAD, Com::Variant(false));
    ambients.Set(DISPID_AMBIENT_SHOWGRABHANDLES, Com::Variant(false));
    ambients.Set(DISPID_AMBIENT_SHOWHATCHING, Com::Variant(false));
    ambients.Set(DISPID_AMBIENT_DISPLAYASDEFAULT, Com::Variant(false));
    ambients.Set(DISPID_AMBIENT_SUPPORTSMNEMONICS, Com::Variant(true));
    return ambients;
}

HRESULT AmbientProperties::Get(DISPID id, VARIANT* value) const {
    const auto found = values_.find(id);
    if (found == values_.end()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return Com::Guard([&] { *value = Com::Variant(found->second).Detach(); });
}

DISPID AmbientProperties::IdOf(const wchar_t* name) noexcept {
    for (const NamedAmbient& ambient : NamedAmbients) {
        if (_wcsicmp(ambient.Name, name) == 0) {
            return ambient.Id;
        }
    }
    return DISPID_UNKNOWN;
}

} // namespace Quorvane::Host
