// SPDX-License-Identifier: MIT
// What a control has in common over all its OLE interfaces.
#include "com/ControlCore.h"

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {

void ControlCore::SetExtent(const SIZEL& extent) {
    if (extent.cx < 0 || extent.cy < 0) {
        throw HresultError(E_INVALIDARG);
    }
    const bool changed = extent.cx != extent_.cx || extent.cy != extent_.cy;
    extent_ = extent;
    if (changed) {
        ExtentChanged();
        ViewChanged();
    }
}

void ControlCore::Close(DWORD saveOption) {
    const auto alive = SelfReference();
    activation_.InPlaceDeactivate();
    if (saveOption != OLECLOSE_NOSAVE && site_.Get() && StreamForm().IsDirty() == S_OK) {
        const ComPtr<IOleClientSite> site = site_.Get();
        site->SaveObject();
        sinks_.Saved();
    }
    sinks_.Closed(Unknown());
}

void ControlCore::SetSite(IOleClientSite* site) {
    const auto alive = SelfReference();
    if (!IsSameObject(site, site_.Get().Get())) {
        activation_.InPlaceDeactivate();
    }
    site_.Set(site);
}

} // namespace Quorvane::Com
