// SPDX-License-Identifier: MIT
// The advisory sinks of a host.
#include "com/AdviseSinks.h"

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {

// A sink may disconnect itself or others while it is called: what is called is held.

HRESULT AdviseSinks::Advise(IAdviseSink* sink, DWORD* cookie) {
    if (!objectSinks_) {
        Check(::CreateOleAdviseHolder(objectSinks_.Put()));
    }
    return objectSinks_->Advise(sink, cookie);
}

HRESULT AdviseSinks::Unadvise(DWORD cookie) noexcept {
    const auto holder = objectSinks_;
    return holder ? holder->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT AdviseSinks::EnumAdvise(IEnumSTATDATA** sinks) noexcept {
    return objectSinks_ ? objectSinks_->EnumAdvise(sinks) : S_OK;
}

HRESULT AdviseSinks::DataAdvise(IDataObject* source, FORMATETC* format, DWORD flags,
                                IAdviseSink* sink, DWORD* cookie) {
    if (!dataSinks_) {
        Check(::CreateDataAdviseHolder(dataSinks_.Put()));
    }
    return dataSinks_->Advise(source, format, flags, sink, cookie);
}

HRESULT AdviseSinks::DataUnadvise(DWORD cookie) noexcept {
    const auto holder = dataSinks_;
    return holder ? holder->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT AdviseSinks::EnumDataAdvise(IEnumSTATDATA** sinks) noexcept {
    return dataSinks_ ? dataSinks_->EnumAdvise(sinks) : S_OK;
}

void AdviseSinks::SetViewSink(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    viewSink_ = sink;
    viewAspects_ = sink ? aspects : 0;
    viewFlags_ = sink ? flags : 0;
}

void AdviseSinks::GetViewSink(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept {
    if (aspects) {
        *aspects = viewAspects_;
    }
    if (flags) {
        *flags = viewFlags_;
    }
    if (sink) {
        viewSink_.CopyTo(sink);
    }
}

void AdviseSinks::ViewChanged(IUnknown* control) noexcept {
    constexpr LONG WholeAspect = -1;
    const auto viewSink = viewSink_;
    const auto dataSinks = dataSinks_;
    if (viewSink && (viewAspects_ & DVASPECT_CONTENT)) {
        if (viewFlags_ & ADVF_ONLYONCE) {
            viewSink_.Reset();
        }
        viewSink->OnViewChange(DVASPECT_CONTENT, WholeAspect);
    }
    if (dataSinks) {
        dataSinks->SendOnDataChange(Query<IDataObject>(control).Get(), 0, 0);
    }
}

void AdviseSinks::Saved() noexcept {
    if (const auto holder = objectSinks_) {
        holder->SendOnSave();
    }
}

void AdviseSinks::Closed(IUnknown* control) noexcept {
    if (const auto holder = dataSinks_) {
        holder->SendOnDataChange(Query<IDataObject>(control).Get(), 0, ADVF_DATAONSTOP);
    }
    if (const auto holder = objectSinks_) {
        holder->SendOnClose();
    }
}

} // namespace Quorvane::Com
