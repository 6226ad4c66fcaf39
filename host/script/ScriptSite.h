// SPDX-License-Identifier: MIT
// ScriptSite: what a script engine asks of its host.
#pragma once

#include <activscp.h>

#include <functional>
#include <map>

#include "com/ComObject.h"
#include "host/script/ScriptError.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Gives the engine the objects of the form by name, and receives its errors.
class ScriptSite final : public Com::ComObject<IActiveScriptSite, IActiveScriptSiteWindow> {
  public:
    explicit ScriptSite(std::function<void(const ScriptError&)> onError)
        : onError_(std::move(onError)) {}

    /// False if the name is taken (names differ in more than letter case).
    bool AddItem(const Text& name, IUnknown* object);

    /// The text in which errors are to be located.
    void SetCode(Text code) { code_ = std::move(code); }

    /// Drops all objects: they must not live as long as an engine that leaks its site.
    void Clear() noexcept { items_.clear(); }

    // IActiveScriptSite
    STDMETHODIMP GetLCID(LCID* lcid) noexcept override;
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                             ITypeInfo** type) noexcept override;
    STDMETHODIMP GetDocVersionString(BSTR* version) noexcept override;
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) noexcept override {
        return S_OK;
    }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) noexcept override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) noexcept override;
    STDMETHODIMP OnEnterScript() noexcept override { return S_OK; }
    STDMETHODIMP OnLeaveScript() noexcept override { return S_OK; }

    // IActiveScriptSiteWindow: message boxes of the script have no owner
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }

  private:
    ~ScriptSite() override = default;

    struct IgnoringCase {
        bool operator()(const Text& left, const Text& right) const noexcept;
    };

    std::function<void(const ScriptError&)> onError_;
    std::map<Text, Com::ComPtr<IUnknown>, IgnoringCase> items_;
    Text code_;
};

} // namespace Quorvane::Host
