// SPDX-License-Identifier: MIT
// ScriptHost: runs a script in the platform's script engine.
#pragma once

#include <vector>

#include "com/ExceptionInfo.h"
#include "host/script/ScriptSite.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// One script engine with the objects its script sees.
class ScriptHost {
  public:
    /// Starts the engine `engine` ("VBScript", "JScript"). Each error of the script goes to
    /// `onError` as soon as it happens. Throws Com::HresultError.
    ScriptHost(const Text& engine, std::function<void(const ScriptError&)> onError);
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;
    ~ScriptHost() { Close(); }

    /// The engine for a script file by its extension (".vbs", ".js"); empty for another one.
    static Text EngineFor(const Text& extension);

    /// Makes `object` known to the script as `name`. Throws Com::HresultError if the name is taken.
    void AddObject(const Text& name, IUnknown* object);

    /// Runs the script's main part, which also defines its procedures. False: it failed, and the
    /// error has been reported.
    bool Run(const Text& code);

    /// Calls the script's procedure `name`, if it has one; `arguments` are in the order of
    /// DISPPARAMS, last first. False: it failed, and the error has been reported.
    bool Call(const Text& name, DISPPARAMS& arguments);
    bool Call(const Text& name);

    bool HasProcedure(const Text& name);

    /// Whether an error has been reported.
    bool HasFailed() const { return errors_ != 0; }

    /// Ends the engine and lets go of its objects. Nothing may be called afterwards.
    void Close() noexcept;

  private:
    DISPID FindProcedure(const Text& name);
    IDispatch* Procedures();
    bool Finish(HRESULT result, unsigned errorsBefore, Com::ExceptionInfo& info);
    void Report(const ScriptError& error);

    std::function<void(const ScriptError&)> onError_;
    Com::ComPtr<ScriptSite> site_;
    Com::ComPtr<IActiveScript> engine_;
    Com::ComPtr<IActiveScriptParse> parser_;
    Com::ComPtr<IDispatch> procedures_;
    unsigned errors_ = 0;
};

} // namespace Quorvane::Host
