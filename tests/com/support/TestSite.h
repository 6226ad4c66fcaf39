// SPDX-License-Identifier: MIT
// A form's place for a control, with ambient properties that a test sets.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <vector>

#include "com/ComObject.h"
#include "com/Scoped.h"

namespace Quorvane {

/// A client site. It offers the ambient properties in `Ambients`; any other one is answered with
/// DISP_E_MEMBERNOTFOUND, and one in `Failures` with that failure.
class TestSite final : public Com::ComObject<IOleClientSite, IDispatch> {
  public:
    std::map<DISPID, Com::Variant> Ambients;
    std::map<DISPID, HRESULT> Failures;
    /// Called with each property before it is answered.
    std::function<void(DISPID)> OnAsked;
    /// What the control has asked for, in order.
    std::vector<DISPID> Asked;
    int Saves = 0;

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override;
    STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) noexcept override;
};

/// A site in run mode (user mode true) or design mode, with locale 0x409 and no other property.
Com::ComPtr<TestSite> NewSite(bool runMode);

} // namespace Quorvane
