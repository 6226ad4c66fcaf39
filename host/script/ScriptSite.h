// SPDX-License-Identifier: MIT
// ScriptSite: what a script engine asks of its host.
#pragma once

#include "host/container/ComObject.h"
#include "host/script/ScriptError.h"

#include <functional>
#include <map>
#include <string>

#include <activscp.h>

namespace Quorvane::Host {

/// Gives the engine the objects of the form by name, and receives its errors.
class ScriptSite final : public ComObject<IActiveScriptSite, IActiveScriptSiteWindow> {
  public:
    explicit ScriptSite(std::function<void(const ScriptError&)> onError)
        : onError_(std::move(onError)) {}

    /// False if the name is taken (names differ in more than letter case).
    bool AddItem(const std::wstring& name, IUnknown* object);

    /// The text in which errors are to be located.
    void SetCode(std::wstring code) { code_ = std::move(code); }

    /// Drops all objects: they must not live as long as an engine that leaks its site.
    void Clear() noexcept { items_.clear(); }

    // IActiveScriptSite
    HRESULT STDMETHODCALLTYPE GetLCID(LCID* lcid) noexcept override;
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                          ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* version) noexcept override;
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*,
                                                const EXCEPINFO*) noexcept override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) noexcept override;
    HRESULT STDMETHODCALLTYPE OnEnterScript() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() noexcept override { return S_OK; }

    // IActiveScriptSiteWindow: message boxes of the script have no owner
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return S_OK; }

  private:
    ~ScriptSite() override = default;

    struct IgnoringCase {
        bool operator()(const std::wstring& left, const std::wstring& right) const noexcept;
    };

    std::function<void(const ScriptError&)> onError_;
    std::map<std::wstring, ComPtr<IUnknown>, IgnoringCase> items_;
    std::wstring code_;
};

} // namespace Quorvane::Host
