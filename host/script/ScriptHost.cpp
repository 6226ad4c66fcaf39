// SPDX-License-Identifier: MIT
// ScriptHost: runs a script in the platform's script engine.
#include "host/script/ScriptHost.h"

#include <cwchar>

#include "com/FailedCall.h"
#include "com/Scoped.h"

namespace Quorvane::Host {

ScriptHost::ScriptHost(const Text& engine, std::function<void(const ScriptError&)> onError)
    : onError_(std::move(onError)) {
    const Text starting = u"start the script engine " + engine;
    site_ = Com::MakeObject<ScriptSite>([this](const ScriptError& error) { Report(error); });
    CLSID clsid{};
    Com::Check(::CLSIDFromProgID(Com::Wide(engine), &clsid), starting);
    Com::Check(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                                  engine_.PutVoid()),
               starting);
    Com::Check(engine_->QueryInterface(__uuidof(IActiveScriptParse), parser_.PutVoid()), starting);
    Com::Check(parser_->InitNew(), starting);
    Com::Check(engine_->SetScriptSite(site_.Get()), starting);
}

Text ScriptHost::EngineFor(const Text& extension) {
    if (_wcsicmp(Com::Wide(extension), L".vbs") == 0) {
        return u"VBScript";
    }
    if (_wcsicmp(Com::Wide(extension), L".js") == 0) {
        return u"JScript";
    }
    return {};
}

void ScriptHost::AddObject(const Text& name, IUnknown* object) {
    const Text adding = u"give the script the object " + name;
    if (!site_->AddItem(name, object)) {
        Com::Fail(E_INVALIDARG, adding, u"the name is taken");
    }
    // Not SCRIPTITEM_ISSOURCE: events come through Call, or an engine that connects to sources by
    // itself would handle each one twice.
    Com::Check(engine_->AddNamedItem(Com::Wide(name), SCRIPTITEM_ISVISIBLE), adding);
}

bool ScriptHost::Run(const Text& code) {
    site_->SetCode(code);
    const unsigned errorsBefore = errors_;
    Com::ExceptionInfo info;
    HRESULT result = parser_->ParseScriptText(Com::Wide(code), nullptr, nullptr, nullptr, 0, 0,
                                              SCRIPTTEXT_ISVISIBLE, nullptr, info.Get());
    // The engine keeps the main part until it is started.
    if (SUCCEEDED(result)) {
        result = engine_->SetScriptState(SCRIPTSTATE_STARTED);
    }
    return Finish(result, errorsBefore, info);
}

bool ScriptHost::Call(const Text& name) {
    DISPPARAMS none{};
    return Call(name, none);
}

bool ScriptHost::Call(const Text& name, DISPPARAMS& arguments) {
    const DISPID id = FindProcedure(name);
    if (id == DISPID_UNKNOWN) {
        return true;
    }
    const unsigned errorsBefore = errors_;
    Com::Variant ignored;
    Com::ExceptionInfo info;
    // The engine may be closed by what the procedure does; its dispatch object must outlive the
    // call.
    const Com::ComPtr<IDispatch> procedures = procedures_;
    const HRESULT result = procedures->Invoke(id, IID_NULL, ::GetUserDefaultLCID(), DISPATCH_METHOD,
                                              &arguments, ignored.Put(), info.Get(), nullptr);
    return Finish(result, errorsBefore, info);
}

bool ScriptHost::HasProcedure(const Text& name) {
    return FindProcedure(name) != DISPID_UNKNOWN;
}

void ScriptHost::Close() noexcept {
    procedures_.Reset();
    parser_.Reset();
    if (engine_) {
        engine_->Close();
    }
    engine_.Reset();
    if (site_) {
        site_->Clear();
    }
}

DISPID ScriptHost::FindProcedure(const Text& name) {
    IDispatch* const procedures = Procedures();
    auto* wideName = const_cast<wchar_t*>(Com::Wide(name));
    DISPID id = DISPID_UNKNOWN;
    if (!procedures ||
        FAILED(procedures->GetIDsOfNames(IID_NULL, &wideName, 1, ::GetUserDefaultLCID(), &id))) {
        return DISPID_UNKNOWN;
    }
    return id;
}

IDispatch* ScriptHost::Procedures() {
    if (!procedures_ && engine_) {
        engine_->GetScriptDispatch(nullptr, procedures_.Put());
    }
    return procedures_.Get();
}

bool ScriptHost::Finish(HRESULT result, unsigned errorsBefore, Com::ExceptionInfo& info) {
    if (SUCCEEDED(result)) {
        return errors_ == errorsBefore;
    }
    // Engines differ in whether an error of a called procedure also reaches the site.
    if (errors_ == errorsBefore) {
        ScriptError error;
        info.FillIn();
        error.Source = info.Source();
        error.Description = info.Description();
        error.Number = result == DISP_E_EXCEPTION ? info.Number() : result;
        Report(error);
    }
    return false;
}

void ScriptHost::Report(const ScriptError& error) {
    ++errors_;
    onError_(error);
}

} // namespace Quorvane::Host
