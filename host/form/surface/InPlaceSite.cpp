// SPDX-License-Identifier: MIT
// InPlaceSite: the place on a form's window that holds one control.
#include "host/form/surface/InPlaceSite.h"

#include "win/Dpi.h"

namespace Quorvane::Host {
STDMETHODIMP InPlaceFrame::GetWindow(HWND* window) noexcept {
    if (!window) {
        return E_POINTER;
    }
    *window = owner_ ? ::GetAncestor(owner_->SiteWindow(), GA_ROOT) : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    if (owner_) {
        owner_->SetActiveObject(object);
    }
    return S_OK;
}

InPlaceSite::InPlaceSite(SiteOwner& owner, AmbientProperties ambients)
    : owner_(&owner), ambients_(Com::MakeObject<ControlSite>(std::move(ambients))),
      frame_(Com::MakeObject<InPlaceFrame>(owner)) {}

void InPlaceSite::Detach() {
    owner_ = nullptr;
    frame_->Detach();
}

STDMETHODIMP InPlaceSite::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept {
    return ambients_->GetMoniker(assign, which, moniker);
}

STDMETHODIMP InPlaceSite::GetContainer(IOleContainer** container) noexcept {
    return ambients_->GetContainer(container);
}

STDMETHODIMP InPlaceSite::GetExtendedControl(IDispatch** control) noexcept {
    return ambients_->GetExtendedControl(control);
}

STDMETHODIMP InPlaceSite::TransformCoords(POINTL* himetric, POINTF* container,
                                          DWORD flags) noexcept {
    if (!himetric || !container) {
        return E_POINTER;
    }
    const double dpi = owner_ ? Win::DpiOf(owner_->SiteWindow()) : USER_DEFAULT_SCREEN_DPI;
    const double scale = dpi / Win::HimetricPerInch;
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        container->x = static_cast<float>(himetric->x * scale);
        container->y = static_cast<float>(himetric->y * scale);
    } else {
        himetric->x = static_cast<LONG>(container->x / scale);
        himetric->y = static_cast<LONG>(container->y / scale);
    }
    return S_OK;
}

STDMETHODIMP InPlaceSite::OnFocus(BOOL hasFocus) noexcept {
    if (owner_) {
        owner_->OnSiteFocus(hasFocus != FALSE);
    }
    return S_OK;
}

STDMETHODIMP InPlaceSite::ShowPropertyFrame() noexcept {
    if (owner_) {
        owner_->ShowPropertyFrame();
    }
    return S_OK;
}

STDMETHODIMP InPlaceSite::GetWindow(HWND* window) noexcept {
    if (!window) {
        return E_POINTER;
    }
    *window = owner_ ? owner_->SiteWindow() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT position, LPRECT clip,
                                           LPOLEINPLACEFRAMEINFO info) noexcept {
    if (!frame || !document || !position || !clip || !info) {
        return E_POINTER;
    }
    *document = nullptr;
    *frame = nullptr;
    if (!owner_) {
        return E_UNEXPECTED;
    }
    Com::ComPtr<IOleInPlaceFrame>(frame_).CopyTo(frame);
    *position = owner_->SiteRectangle();
    *clip = *position;
    info->fMDIApp = FALSE;
    info->hwndFrame = ::GetAncestor(owner_->SiteWindow(), GA_ROOT);
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP InPlaceSite::OnPosRectChange(LPCRECT position) noexcept {
    if (owner_ && position) {
        owner_->MoveSite(*position);
    }
    return S_OK;
}

STDMETHODIMP InPlaceSite::GetTypeInfoCount(UINT* count) noexcept {
    return ambients_->GetTypeInfoCount(count);
}

STDMETHODIMP InPlaceSite::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept {
    return ambients_->GetTypeInfo(index, locale, info);
}

STDMETHODIMP InPlaceSite::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                        DISPID* ids) noexcept {
    return ambients_->GetIDsOfNames(iid, names, count, locale, ids);
}

STDMETHODIMP InPlaceSite::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                 DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                 UINT* badArgument) noexcept {
    return ambients_->Invoke(id, iid, locale, flags, arguments, result, exception, badArgument);
}

} // namespace Quorvane::Host
