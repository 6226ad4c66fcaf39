// SPDX-License-Identifier: MIT
// IQuickActivate: a host's first dozen calls in one.
#include "com/QuickActivation.h"

namespace Quorvane::Com {

/// Connects a sink of the host; 0 where it gave none.
DWORD QuickActivation::Connect(const IID& source, IUnknown* sink) {
    if (!sink) {
        return 0;
    }
    const auto points = Query<IConnectionPointContainer>(Core().Unknown());
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    Check(points->FindConnectionPoint(source, point.Put()));
    Check(point->Advise(sink, &cookie));
    return cookie;
}

STDMETHODIMP QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept {
    return Guard<IQuickActivate>([&] {
        const auto alive = Core().SelfReference();
        const QACONTAINER& host = Out(container);
        const ULONG size = Out(control).cbSize;
        *control = QACONTROL{};
        control->cbSize = size;
        Core().SetSite(host.pClientSite);
        if (host.pAdviseSink) {
            Core().Sinks().SetViewSink(DVASPECT_CONTENT, 0, host.pAdviseSink);
        }
        control->dwPropNotifyCookie =
            Connect(__uuidof(IPropertyNotifySink), host.pPropertyNotifySink);
        control->dwEventCookie = Connect(EventsId(), host.pUnkEventSink);
        control->dwMiscStatus = Core().Traits().MiscStatus;
        control->dwViewStatus = VIEWSTATUS_OPAQUE;
    });
}

STDMETHODIMP QuickActivation::SetContentExtent(LPSIZEL size) noexcept {
    return Guard<IQuickActivate>([&] { Core().SetExtent(Out(size)); });
}

STDMETHODIMP QuickActivation::GetContentExtent(LPSIZEL size) noexcept {
    return Guard<IQuickActivate>([&] { Out(size) = Core().Extent(); });
}

} // namespace Quorvane::Com
