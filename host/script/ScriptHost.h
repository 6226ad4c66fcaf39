// SPDX-License-Identifier: MIT
// ScriptHost: runs a script in the platform's script engine.
#pragma once

#include "host/script/ScriptSite.h"

#include <string>
#include <vector>

namespace Quorvane::Host {

/// One script engine with the objects its script sees.
class ScriptHost {
  public:
    /// Starts the engine `engine` ("VBScript", "JScript"). Each error of the script goes to
    /// `onError` as soon as it happens. Throws HResultError.
    ScriptHost(const std::wstring& engine, std::function<void(const ScriptError&)> onError);
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;
    ~ScriptHost() { Close(); }

    /// The engine for a script file by its extension (".vbs", ".js"); empty for another one.
    static std::wstring EngineFor(const std::wstring& extension);

    /// Makes `object` known to the script as `name`. Throws HResultError if the name is taken.
    void AddObject(const std::wstring& name, IUnknown* object);

    /// Runs the script's main part, which also defines its procedures. False: it failed, and the
    /// error has been reported.
    bool Run(const std::wstring& code);

    /// Calls the script's procedure `name`, if it has one; `arguments` are in the order of
    /// DISPPARAMS, last first. False: it failed, and the error has been reported.
    bool Call(const std::wstring& name, DISPPARAMS& arguments);
    bool Call(const std::wstring& name);

    bool HasProcedure(const std::wstring& name);

    /// Whether an error has been reported.
    bool HasFailed() const { return errors_ != 0; }

    /// Ends the engine and lets go of its objects. Nothing may be called afterwards.
    void Close() noexcept;

  private:
    DISPID FindProcedure(const std::wstring& name);
    IDispatch* Procedures();
    bool Finish(HRESULT result, unsigned errorsBefore, const EXCEPINFO* info);
    void Report(const ScriptError& error);

    std::function<void(const ScriptError&)> onError_;
    ComPtr<ScriptSite> site_;
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
    ComPtr<IDispatch> procedures_;
    unsigned errors_ = 0;
};

} // namespace Quorvane::Host
