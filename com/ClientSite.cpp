// SPDX-License-Identifier: MIT
// The site that a host gives to a control, and the ambient properties it offers there.
#include "com/ClientSite.h"

#include <olectl.h>

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {
namespace {

/// Whether an answer tells of trouble between us and the host. Hosts that merely do not offer a
/// property say so with nearly any other failure.
bool IsTrouble(HRESULT result) noexcept {
    // The errors of remote calls, by the numbers that the platform keeps for them.
    constexpr int FirstRemoteError = 1700;
    constexpr int LastRemoteError = 1999;
    const int code = HRESULT_CODE(result);
    const bool isRemote = HRESULT_FACILITY(result) == FACILITY_RPC ||
                          (HRESULT_FACILITY(result) == FACILITY_WIN32 && code >= FirstRemoteError &&
                           code <= LastRemoteError);
    return isRemote || result == E_OUTOFMEMORY || result == E_ACCESSDENIED ||
           result == CO_E_OBJNOTCONNECTED;
}

/// What `convert` makes of an ambient value. Nothing where the host offers none, or fills in one of
/// a kind that says nothing, as some do for a property that they do not offer.
template <class Convert>
auto Understood(const Variant& value, Convert convert)
    -> std::optional<decltype(convert(value.Get()))> {
    if (value.Type() == VT_EMPTY) {
        return std::nullopt;
    }
    try {
        return convert(value.Get());
    } catch (const HresultError& error) {
        if (IsTrouble(error.Code())) {
            throw;
        }
        return std::nullopt;
    }
}

bool ToFlag(const VARIANT& value) {
    return ChangeType(value, VT_BOOL).Get().boolVal != VARIANT_FALSE;
}

LCID ToLocale(const VARIANT& value) {
    return static_cast<LCID>(ChangeType(value, VT_I4).Get().lVal);
}

} // namespace

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
    if (FAILED(result) && !IsTrouble(result)) {
        return {};
    }
    Check(result);
    return value;
}

bool ClientSite::UserMode() const {
    return Understood(Ambient(DISPID_AMBIENT_USERMODE), ToFlag).value_or(true);
}

bool ClientSite::IsUIDead() const {
    return Understood(Ambient(DISPID_AMBIENT_UIDEAD), ToFlag).value_or(false);
}

LCID ClientSite::LocaleId() const {
    const auto locale = Understood(Ambient(DISPID_AMBIENT_LOCALEID), ToLocale);
    return locale ? *locale : ::GetUserDefaultLCID();
}

ComPtr<IFontDisp> ClientSite::Font() const {
    const Variant font = Ambient(DISPID_AMBIENT_FONT);
    const bool isObject = font.Type() == VT_DISPATCH || font.Type() == VT_UNKNOWN;
    return isObject ? Query<IFontDisp>(font.Get().punkVal) : nullptr;
}

std::optional<OLE_COLOR> ClientSite::BackColor() const {
    return Understood(Ambient(DISPID_AMBIENT_BACKCOLOR), ToColor);
}

HWND ClientSite::Window() const noexcept {
    HWND window = nullptr;
    if (const auto holder = site_.As<IOleWindow>()) {
        holder->GetWindow(&window);
    }
    return window;
}

} // namespace Quorvane::Com
