// SPDX-License-Identifier: MIT
// ControlSite: the place on a form that holds one control.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include "com/ComObject.h"
#include "host/container/AmbientProperties.h"

namespace Quorvane::Host {

/// The client site of a control without a window: ambient properties, and the calls a control makes
/// to its container.
class ControlSite final : public Com::ComObject<IOleClientSite, IOleControlSite, IDispatch> {
  public:
    explicit ControlSite(AmbientProperties ambients) : ambients_(std::move(ambients)) {}

    /// The values the site answers with. Tell the control of a change through
    /// IOleControl::OnAmbientPropertyChange.
    AmbientProperties& Ambients() { return ambients_; }

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) noexcept override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) noexcept override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) noexcept override;

  private:
    ~ControlSite() override = default;

    AmbientProperties ambients_;
};

} // namespace Quorvane::Host
