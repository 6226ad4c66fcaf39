// SPDX-License-Identifier: MIT
// The control towards its site: the embedded object and its ambient properties.
#include "control/FISControl.h"
#include "control/HelpFile.h"
#include "shared/Definition.h"

namespace Quorvane {

void FISControl::AmbientLocaleChanged() {
    Definition::State().LanguageId = static_cast<std::int32_t>(site_.LocaleId());
    SetHelpFile();
}

STDMETHODIMP FISControl::SetClientSite(IOleClientSite* site) noexcept {
    return Com::Guard<IOleObject>([&] { site_.Set(site); });
}

STDMETHODIMP FISControl::GetClientSite(IOleClientSite** site) noexcept {
    return Com::Guard<IOleObject>([&] {
        Com::Out(site) = nullptr;
        site_.Get().CopyTo(site);
    });
}

STDMETHODIMP FISControl::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept {
    return S_OK;
}

STDMETHODIMP FISControl::Close(DWORD saveOption) noexcept {
    return Com::Guard<IOleObject>([&] {
        const Com::KeepAlive alive(this);
        if (saveOption != OLECLOSE_NOSAVE && isDirty_ && site_.Get()) {
            site_.Get()->SaveObject();
        }
        if (adviseHolder_) {
            adviseHolder_->SendOnClose();
        }
    });
}

STDMETHODIMP FISControl::SetMoniker(DWORD, IMoniker*) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP FISControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    return Com::Guard<IOleObject>([&] {
        Com::Out(moniker) = nullptr;
        return E_NOTIMPL;
    });
}

STDMETHODIMP FISControl::InitFromData(IDataObject*, BOOL, DWORD) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP FISControl::GetClipboardData(DWORD, IDataObject** data) noexcept {
    return Com::Guard<IOleObject>([&] {
        Com::Out(data) = nullptr;
        return E_NOTIMPL;
    });
}

STDMETHODIMP FISControl::DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept {
    return OLEOBJ_S_CANNOT_DOVERB_NOW;
}

STDMETHODIMP FISControl::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    return Com::Guard<IOleObject>([&] {
        Com::Out(verbs) = nullptr;
        return OLE_S_USEREG;
    });
}

STDMETHODIMP FISControl::Update() noexcept {
    return S_OK;
}

STDMETHODIMP FISControl::IsUpToDate() noexcept {
    return S_OK;
}

STDMETHODIMP FISControl::GetUserClassID(CLSID* clsid) noexcept {
    return GetClassID(clsid);
}

STDMETHODIMP FISControl::GetUserType(DWORD form, LPOLESTR* name) noexcept {
    return ::OleRegGetUserType(__uuidof(::FISControl), form, name);
}

STDMETHODIMP FISControl::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    return Com::Guard<IOleObject>([&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        extent_ = Com::Out(size);
        return S_OK;
    });
}

STDMETHODIMP FISControl::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    return Com::Guard<IOleObject>([&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        Com::Out(size) = extent_;
        return S_OK;
    });
}

STDMETHODIMP FISControl::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
    return Com::Guard<IOleObject>([&] {
        if (!adviseHolder_) {
            Com::Check(::CreateOleAdviseHolder(adviseHolder_.Put()));
        }
        return adviseHolder_->Advise(sink, cookie);
    });
}

STDMETHODIMP FISControl::Unadvise(DWORD cookie) noexcept {
    return adviseHolder_ ? adviseHolder_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP FISControl::EnumAdvise(IEnumSTATDATA** sinks) noexcept {
    return Com::Guard<IOleObject>([&] {
        Com::Out(sinks) = nullptr;
        return adviseHolder_ ? adviseHolder_->EnumAdvise(sinks) : S_OK;
    });
}

STDMETHODIMP FISControl::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    return Com::Guard<IOleObject>(
        [&] { Com::Out(status) = aspect == DVASPECT_CONTENT ? MiscStatus : 0; });
}

STDMETHODIMP FISControl::SetColorScheme(LOGPALETTE*) noexcept {
    return S_OK;
}

STDMETHODIMP FISControl::GetControlInfo(CONTROLINFO* info) noexcept {
    return Com::Guard<IOleControl>([&] {
        Com::Out(info);
        info->hAccel = nullptr;
        info->cAccel = 0;
        info->dwFlags = 0;
    });
}

STDMETHODIMP FISControl::OnMnemonic(LPMSG) noexcept {
    return S_OK;
}

STDMETHODIMP FISControl::OnAmbientPropertyChange(DISPID property) noexcept {
    return Com::Guard<IOleControl>([&] {
        const bool several = property == DISPID_UNKNOWN;
        if (several || property == DISPID_AMBIENT_LOCALEID) {
            AmbientLocaleChanged();
        }
    });
}

STDMETHODIMP FISControl::FreezeEvents(BOOL freeze) noexcept {
    ConnectionPoints::FreezeEvents(freeze != FALSE);
    return S_OK;
}

} // namespace Quorvane
