// SPDX-License-Identifier: MIT
// ScriptHost: runs a script in the platform's script engine.
#include "host/script/ScriptHost.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

#include <cwchar>

namespace Quorvane::Host {

ScriptHost::ScriptHost(const std::wstring& engine, std::function<void(const ScriptError&)> onError)
    : onError_(std::move(onError)) {
    const std::wstring starting = L"start the script engine " + engine;
    site_ = MakeCom<ScriptSite>([this](const ScriptError& error) { Report(error); });
    CLSID clsid{};
    Check(CLSIDFromProgID(engine.c_str(), &clsid), starting);
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                           engine_.ReceiveVoid()),
          starting);
    Check(engine_->QueryInterface(__uuidof(IActiveScriptParse), parser_.ReceiveVoid()), starting);
    Check(parser_->InitNew(), starting);
    Check(engine_->SetScriptSite(site_.Get()), starting);
}

std::wstring ScriptHost::EngineFor(const std::wstring& extension) {
    if (_wcsicmp(extension.c_str(), L".vbs") == 0) {
        return L"VBScript";
    }
    if (_wcsicmp(extension.c_str(), L".js") == 0) {
        return L"JScript";
    }
    return {};
}

void ScriptHost::AddObject(const std::wstring& name, IUnknown* object) {
    const std::wstring adding = L"give the script the object " + name;
    if (!site_->AddItem(name, object)) {
        Fail(E_INVALIDARG, adding, L"the name is taken");
    }
    // Not SCRIPTITEM_ISSOURCE: events come through Call, or an engine that connects to sources by
    // itself would handle each one twice.
    Check(engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE), adding);
}

bool ScriptHost::Run(const std::wstring& code) {
    site_->SetCode(code);
    const unsigned errorsBefore = errors_;
    ExceptionInfo info;
    HRESULT result = parser_->ParseScriptText(code.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                              SCRIPTTEXT_ISVISIBLE, nullptr, &info);
    // The engine keeps the main part until it is started.
    if (SUCCEEDED(result)) {
        result = engine_->SetScriptState(SCRIPTSTATE_STARTED);
    }
    return Finish(result, errorsBefore, &info);
}

bool ScriptHost::Call(const std::wstring& name) {
    DISPPARAMS none{};
    return Call(name, none);
}

bool ScriptHost::Call(const std::wstring& name, DISPPARAMS& arguments) {
    const DISPID id = FindProcedure(name);
    if (id == DISPID_UNKNOWN) {
        return true;
    }
    const unsigned errorsBefore = errors_;
    Variant ignored;
    ExceptionInfo info;
    // The engine may be closed by what the procedure does; its dispatch object must outlive the
    // call.
    const ComPtr<IDispatch> procedures = procedures_;
    const HRESULT result = procedures->Invoke(id, IID_NULL, GetUserDefaultLCID(), DISPATCH_METHOD,
                                              &arguments, &ignored, &info, nullptr);
    return Finish(result, errorsBefore, &info);
}

bool ScriptHost::HasProcedure(const std::wstring& name) {
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

DISPID ScriptHost::FindProcedure(const std::wstring& name) {
    IDispatch* const procedures = Procedures();
    std::wstring text = name;
    LPOLESTR names[] = {text.data()};
    DISPID id = DISPID_UNKNOWN;
    if (!procedures ||
        FAILED(procedures->GetIDsOfNames(IID_NULL, names, 1, GetUserDefaultLCID(), &id))) {
        return DISPID_UNKNOWN;
    }
    return id;
}

IDispatch* ScriptHost::Procedures() {
    if (!procedures_ && engine_) {
        engine_->GetScriptDispatch(nullptr, procedures_.Receive());
    }
    return procedures_.Get();
}

bool ScriptHost::Finish(HRESULT result, unsigned errorsBefore, const EXCEPINFO* info) {
    if (SUCCEEDED(result)) {
        return errors_ == errorsBefore;
    }
    // Engines differ in whether an error of a called procedure also reaches the site.
    if (errors_ == errorsBefore) {
        ScriptError error;
        error.Source = ViewBstr(info->bstrSource);
        error.Description = ViewBstr(info->bstrDescription);
        error.Number = result == DISP_E_EXCEPTION && info->scode != 0 ? info->scode : result;
        Report(error);
    }
    return false;
}

void ScriptHost::Report(const ScriptError& error) {
    ++errors_;
    onError_(error);
}

} // namespace Quorvane::Host
