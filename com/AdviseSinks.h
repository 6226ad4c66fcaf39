// SPDX-License-Identifier: MIT
// The advisory sinks of a host: for the object, its data and its view.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComPtr.h"

namespace Quorvane::Com {

/// The sinks that a host has connected by IOleObject, IDataObject and IViewObject.
class AdviseSinks {
  public:
    // IOleObject
    HRESULT Advise(IAdviseSink* sink, DWORD* cookie);
    HRESULT Unadvise(DWORD cookie) noexcept;
    HRESULT EnumAdvise(IEnumSTATDATA** sinks) noexcept;

    // IDataObject. `source` is the control.
    HRESULT DataAdvise(IDataObject* source, FORMATETC* format, DWORD flags, IAdviseSink* sink,
                       DWORD* cookie);
    HRESULT DataUnadvise(DWORD cookie) noexcept;
    HRESULT EnumDataAdvise(IEnumSTATDATA** sinks) noexcept;

    // IViewObject: one sink, which replaces the one before it; null for none.
    void SetViewSink(DWORD aspects, DWORD flags, IAdviseSink* sink);
    void GetViewSink(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept;

    /// Tells that the control looks different.
    void ViewChanged(IUnknown* control) noexcept;

    /// Tells that the control has been saved.
    void Saved() noexcept;

    /// Tells that the control is closed, for the last time those whose sinks ask for it.
    void Closed(IUnknown* control) noexcept;

  private:
    ComPtr<IOleAdviseHolder> objectSinks_;
    ComPtr<IDataAdviseHolder> dataSinks_;
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
};

} // namespace Quorvane::Com
