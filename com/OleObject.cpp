// SPDX-License-Identifier: MIT
// IOleObject: an object embedded in its host.
#include "com/OleObject.h"

#include <olectl.h>

#include "com/TaskMemory.h"
#include "com/Verbs.h"

namespace Quorvane::Com {

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) noexcept {
    return Guard<IOleObject>([&] { Core().SetSite(site); });
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) noexcept {
    return Guard<IOleObject>([&] {
        Out(site) = nullptr;
        Core().Site().Get().CopyTo(site);
    });
}

/// The names are for the title bar of a window that a control does not have.
STDMETHODIMP OleObject::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD saveOption) noexcept {
    return Guard<IOleObject>([&] { Core().Close(saveOption); });
}

STDMETHODIMP OleObject::SetMoniker(DWORD, IMoniker*) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    return Guard<IOleObject>([&] {
        Out(moniker) = nullptr;
        return E_NOTIMPL;
    });
}

STDMETHODIMP OleObject::InitFromData(IDataObject*, BOOL, DWORD) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
    return Guard<IOleObject>([&] {
        Out(data) = nullptr;
        return E_NOTIMPL;
    });
}

STDMETHODIMP OleObject::DoVerb(LONG verb, LPMSG message, IOleClientSite*, LONG, HWND parent,
                               LPCRECT position) noexcept {
    return Guard<IOleObject>([&] { return RunVerb(Core(), verb, {message, parent, position}); });
}

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    return Guard<IOleObject>([&] {
        Out(verbs) = nullptr;
        *verbs = NewVerbEnumerator(Core()).Detach();
    });
}

STDMETHODIMP OleObject::Update() noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::IsUpToDate() noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::GetUserClassID(CLSID* clsid) noexcept {
    return Guard<IOleObject>([&] { Out(clsid) = *Core().Traits().Clsid; });
}

STDMETHODIMP OleObject::GetUserType(DWORD form, LPOLESTR* name) noexcept {
    return Guard<IOleObject>([&] {
        Out(name) = nullptr;
        const ControlTraits& traits = Core().Traits();
        // A control that is used without registration still has a name.
        if (FAILED(::OleRegGetUserType(*traits.Clsid, form, name)) || !*name) {
            *name = NewTaskText(traits.UserType);
        }
    });
}

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    return Guard<IOleObject>([&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        Core().SetExtent(Out(size));
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    return Guard<IOleObject>([&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        Out(size) = Core().Extent();
        return S_OK;
    });
}

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
    return Guard<IOleObject>([&] { return Core().Sinks().Advise(sink, &Out(cookie)); });
}

STDMETHODIMP OleObject::Unadvise(DWORD cookie) noexcept {
    return Core().Sinks().Unadvise(cookie);
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** sinks) noexcept {
    return Guard<IOleObject>([&] {
        Out(sinks) = nullptr;
        return Core().Sinks().EnumAdvise(sinks);
    });
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    return Guard<IOleObject>(
        [&] { Out(status) = aspect == DVASPECT_CONTENT ? Core().Traits().MiscStatus : 0; });
}

STDMETHODIMP OleObject::SetColorScheme(LOGPALETTE*) noexcept {
    return S_OK;
}

} // namespace Quorvane::Com
