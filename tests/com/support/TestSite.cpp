// SPDX-License-Identifier: MIT
// A form's place for a control, with ambient properties that a test sets.
#include "tests/com/support/TestSite.h"

namespace Quorvane {

STDMETHODIMP TestSite::SaveObject() noexcept {
    ++Saves;
    return S_OK;
}

STDMETHODIMP TestSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP TestSite::GetContainer(IOleContainer** container) noexcept {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP TestSite::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

STDMETHODIMP TestSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP TestSite::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                              EXCEPINFO*, UINT*) noexcept {
    Asked.push_back(property);
    if (OnAsked) {
        OnAsked(property);
    }
    if (const auto failure = Failures.find(property); failure != Failures.end()) {
        return failure->second;
    }
    const auto ambient = Ambients.find(property);
    if (ambient == Ambients.end()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    *result = Com::Variant(ambient->second).Detach();
    return S_OK;
}

Com::ComPtr<TestSite> NewSite(bool runMode) {
    auto site = Com::MakeObject<TestSite>();
    site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(runMode);
    site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x409);
    return site;
}

} // namespace Quorvane
