// SPDX-License-Identifier: MIT
// The site that a host gives to a control, and the ambient properties it offers there.
#include "com/ClientSite.h"

#include <olectl.h>

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {

void ClientSite::Set(IOleClientSite* site) {
    ambients_ = Query<IDispatch>(site);
    site_ = site;
}

Variant ClientSite::Ambient(DISPID property) const {
    Variant value;
    if (!ambients_) {
        return value;
    }
    // Held, as the host may take its site away while it answers.
    const ComPtr<IDispatch> ambients = ambients_;
    DISPPARAMS none{};
    const HRESULT result =
        ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                         value.Put(), nullptr, nullptr);
    if (result == DISP_E_MEMBERNOTFOUND || result == E_NOTIMPL) {
        return {};
    }
    Check(result);
    return value;
}

bool ClientSite::UserMode() const {
    const Variant mode = Ambient(DISPID_AMBIENT_USERMODE);
    return mode.Type() == VT_EMPTY ||
           ChangeType(mode.Get(), VT_BOOL).Get().boolVal != VARIANT_FALSE;
}

LCID ClientSite::LocaleId() const {
    const Variant locale = Ambient(DISPID_AMBIENT_LOCALEID);
    return locale.Type() == VT_EMPTY
               ? ::GetUserDefaultLCID()
               : static_cast<LCID>(ChangeType(locale.Get(), VT_I4).Get().lVal);
}

ComPtr<IFontDisp> ClientSite::Font() const {
    const Variant font = Ambient(DISPID_AMBIENT_FONT);
    const bool isObject = font.Type() == VT_DISPATCH || font.Type() == VT_UNKNOWN;
    return isObject ? Query<IFontDisp>(font.Get().punkVal) : nullptr;
}

std::optional<OLE_COLOR> ClientSite::BackColor() const {
    const Variant color = Ambient(DISPID_AMBIENT_BACKCOLOR);
    if (color.Type() == VT_EMPTY) {
        return std::nullopt;
    }
    return ToColor(color.Get());
}

HWND ClientSite::Window() const noexcept {
    HWND window = nullptr;
    if (const auto holder = site_.As<IOleWindow>()) {
        holder->GetWindow(&window);
    }
    return window;
}

} // namespace Quorvane::Com
