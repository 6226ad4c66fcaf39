// SPDX-License-Identifier: MIT
// ScriptSite: what a script engine asks of its host.
#include "host/script/ScriptSite.h"

#include <cwchar>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"

namespace Quorvane::Host {
namespace {

HRESULT GiveClassInfo(IUnknown* object, ITypeInfo** type) {
    const auto provider = Com::Query<IProvideClassInfo>(object);
    return provider ? provider->GetClassInfo(type) : TYPE_E_ELEMENTNOTFOUND;
}

} // namespace

bool ScriptSite::IgnoringCase::operator()(const Text& left, const Text& right) const noexcept {
    return _wcsicmp(Com::Wide(left), Com::Wide(right)) < 0;
}

bool ScriptSite::AddItem(const Text& name, IUnknown* object) {
    return items_.emplace(name, object).second;
}

HRESULT ScriptSite::GetLCID(LCID* lcid) noexcept {
    if (!lcid) {
        return E_POINTER;
    }
    *lcid = ::GetUserDefaultLCID();
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
    return Com::Guard<IActiveScriptSite>([&] {
        const auto found = items_.find(Com::ToText(name));
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
    return Com::Guard<IActiveScriptSite>([&] { onError_(ReadScriptError(*error, code_)); });
}

HRESULT ScriptSite::GetWindow(HWND* window) noexcept {
    if (!window) {
        return E_POINTER;
    }
    *window = nullptr;
    return S_OK;
}

} // namespace Quorvane::Host
