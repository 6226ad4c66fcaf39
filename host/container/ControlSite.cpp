// SPDX-License-Identifier: MIT
// ControlSite: the place on a form that holds one control.
#include "host/container/ControlSite.h"

namespace Quorvane::Host {
namespace {

template <class Interface>
HRESULT Refuse(Interface** place, HRESULT reason) {
    if (!place) {
        return E_POINTER;
    }
    *place = nullptr;
    return reason;
}

} // namespace

HRESULT ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    return Refuse(moniker, E_NOTIMPL);
}

HRESULT ControlSite::GetContainer(IOleContainer** container) noexcept {
    return Refuse(container, E_NOINTERFACE);
}

HRESULT ControlSite::GetExtendedControl(IDispatch** control) noexcept {
    return Refuse(control, E_NOTIMPL);
}

HRESULT ControlSite::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    return Refuse(info, DISP_E_BADINDEX);
}

HRESULT ControlSite::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                   DISPID* ids) noexcept {
    if (!names || !ids || count == 0) {
        return E_INVALIDARG;
    }
    for (UINT i = 1; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
    }
    ids[0] = AmbientProperties::IdOf(names[0]);
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                            EXCEPINFO*, UINT*) noexcept {
    // Some controls ask with DISPATCH_METHOD as well, so only a write is refused.
    if ((flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!result) {
        return E_POINTER;
    }
    return ambients_.Get(id, result);
}

} // namespace Quorvane::Host
