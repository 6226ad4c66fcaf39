// SPDX-License-Identifier: MIT
// ControlSite: the place on a form that holds one control.
#pragma once

#include "host/container/AmbientProperties.h"
#include "host/container/ComObject.h"

#include <ocidl.h>
#include <oleidl.h>

namespace Quorvane::Host {

/// The client site of a control without a window: ambient properties, and the calls a control makes
/// to its container.
class ControlSite final : public ComObject<IOleClientSite, IOleControlSite, IDispatch> {
  public:
    explicit ControlSite(AmbientProperties ambients) : ambients_(std::move(ambients)) {}

    /// The values the site answers with. Tell the control of a change through
    /// IOleControl::OnAmbientPropertyChange.
    AmbientProperties& Ambients() { return ambients_; }

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override {
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                     VARIANT* result, EXCEPINFO*, UINT*) noexcept override;

  private:
    ~ControlSite() override = default;

    AmbientProperties ambients_;
};

} // namespace Quorvane::Host
