// SPDX-License-Identifier: MIT
// ScriptSite: what a script engine asks of its host.
#include "host/script/ScriptSite.h"

#include "host/container/HResult.h"

#include <cwchar>

namespace Quorvane::Host {

namespace {

HRESULT GiveClassInfo(IUnknown* object, ITypeInfo** type) {
    const auto provider = Query<IProvideClassInfo>(object);
    return provider ? provider->GetClassInfo(type) : TYPE_E_ELEMENTNOTFOUND;
}

} // namespace

bool ScriptSite::IgnoringCase::operator()(const std::wstring& left,
                                          const std::wstring& right) const noexcept {
    return _wcsicmp(left.c_str(), right.c_str()) < 0;
}

bool ScriptSite::AddItem(const std::wstring& name, IUnknown* object) {
    return items_.emplace(name, object).second;
}

HRESULT ScriptSite::GetLCID(LCID* lcid) noexcept {
    if (!lcid) {
        return E_POINTER;
    }
    *lcid = GetUserDefaultLCID();
    return S_OK;
}

HRESULT ScriptSite::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                ITypeInfo** type) noexcept {
    if (item) {
        *item = nullptr;
    }
    if (type) {
        *type = nullptr;
    }
    return Guard([&] {
        const auto found = items_.find(name);
        if (found == items_.end()) {
            return TYPE_E_ELEMENTNOTFOUND;
        }
        if ((mask & SCRIPTINFO_ITYPEINFO) != 0 && type) {
            if (const HRESULT given = GiveClassInfo(found->second.Get(), type); FAILED(given)) {
                return given;
            }
        }
        if ((mask & SCRIPTINFO_IUNKNOWN) != 0 && item) {
            found->second.CopyTo(item);
        }
        return S_OK;
    });
}

HRESULT ScriptSite::GetDocVersionString(BSTR* version) noexcept {
    if (version) {
        *version = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT ScriptSite::OnScriptError(IActiveScriptError* error) noexcept {
    if (!error) {
        return E_POINTER;
    }
    return Guard([&] {
        onError_(ReadScriptError(*error, code_));
        return S_OK;
    });
}

HRESULT ScriptSite::GetWindow(HWND* window) noexcept {
    if (!window) {
        return E_POINTER;
    }
    *window = nullptr;
    return S_OK;
}

} // namespace Quorvane::Host
