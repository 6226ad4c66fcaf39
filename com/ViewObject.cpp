// SPDX-License-Identifier: MIT
// IViewObjectEx: a control drawn by its host.
#include "com/ViewObject.h"

#include "com/Rendering.h"

namespace Quorvane::Com {
namespace {

/// The control has one face, which prints as it shows and covers all of its rectangle.
bool IsDrawn(DWORD aspect) noexcept {
    return aspect == DVASPECT_CONTENT || aspect == DVASPECT_DOCPRINT || aspect == DVASPECT_OPAQUE;
}

/// Throws HresultError(DV_E_DVASPECT) for a face that the control does not have.
void RequireDrawn(DWORD aspect) {
    if (!IsDrawn(aspect)) {
        throw HresultError(DV_E_DVASPECT);
    }
}

} // namespace

STDMETHODIMP ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context,
                              LPCRECTL bounds, LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR),
                              ULONG_PTR) noexcept {
    return Guard<IViewObject>([&] {
        RequireDrawn(aspect);
        if (!context) {
            throw HresultError(E_INVALIDARG);
        }
        const auto alive = Core().SelfReference();
        const RECTL& given = In(bounds);
        DrawIn(Core(), context, {given.left, given.top, given.right, given.bottom});
    });
}

STDMETHODIMP ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** palette) noexcept {
    return Guard<IViewObject>([&] {
        Out(palette) = nullptr;
        // No palette: any will do.
        return S_FALSE;
    });
}

STDMETHODIMP ViewObject::Freeze(DWORD, LONG, void*, DWORD* cookie) noexcept {
    return Guard<IViewObject>([&] {
        Out(cookie) = 0;
        return E_NOTIMPL;
    });
}

STDMETHODIMP ViewObject::Unfreeze(DWORD) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    return Guard<IViewObject>([&] {
        const auto alive = Core().SelfReference();
        Core().Sinks().SetViewSink(aspects, flags, sink);
        if (flags & ADVF_PRIMEFIRST) {
            Core().ViewChanged();
        }
    });
}

STDMETHODIMP ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    return Guard<IViewObject>([&] { Core().Sinks().GetViewSink(aspects, flags, sink); });
}

STDMETHODIMP ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
    return Guard<IViewObject2>([&] {
        Out(size) = SIZEL{};
        RequireDrawn(aspect);
        *size = Core().Extent();
    });
}

STDMETHODIMP ViewObject::GetRect(DWORD aspect, LPRECTL rectangle) noexcept {
    return Guard<IViewObjectEx>([&] {
        Out(rectangle) = RECTL{};
        RequireDrawn(aspect);
        const SIZEL& extent = Core().Extent();
        // HIMETRIC with the y axis upwards.
        *rectangle = {0, 0, extent.cx, -extent.cy};
    });
}

STDMETHODIMP ViewObject::GetViewStatus(DWORD* status) noexcept {
    return Guard<IViewObjectEx>([&] { Out(status) = VIEWSTATUS_OPAQUE; });
}

STDMETHODIMP ViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                       DWORD* result) noexcept {
    return Guard<IViewObjectEx>([&] {
        Out(result) = HITRESULT_OUTSIDE;
        RequireDrawn(aspect);
        *result = ::PtInRect(&In(bounds), point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    });
}

STDMETHODIMP ViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG,
                                      DWORD* result) noexcept {
    return Guard<IViewObjectEx>([&] {
        Out(result) = HITRESULT_OUTSIDE;
        RequireDrawn(aspect);
        RECT common;
        *result = ::IntersectRect(&common, &In(bounds), &Out(rectangle)) ? HITRESULT_HIT
                                                                         : HITRESULT_OUTSIDE;
    });
}

/// No size is more natural to the control than the one it was given.
STDMETHODIMP ViewObject::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                          LPSIZEL) noexcept {
    return E_NOTIMPL;
}

} // namespace Quorvane::Com
