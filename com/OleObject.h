// SPDX-License-Identifier: MIT
// IOleObject: an object embedded in its host.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class OleObject : public IOleObject, protected ControlMixin {
  public:
    using Answers = InterfaceList<IOleObject>;

    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) noexcept override;
    STDMETHODIMP Close(DWORD saveOption) noexcept override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** sinks) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;
};

} // namespace Quorvane::Com
