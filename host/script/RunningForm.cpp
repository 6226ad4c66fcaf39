// SPDX-License-Identifier: MIT
// RunningForm: a form whose controls are loaded, with the script behind it.
#include "host/script/RunningForm.h"

#include "host/container/ControlClass.h"
#include "host/container/ErrorLog.h"
#include "host/container/FormVariant.h"
#include "host/container/HResult.h"
#include "host/container/Wide.h"

namespace Quorvane::Host {

RunningForm::RunningForm(FormFile form, FormSettings settings)
    : form_(std::move(form)), settings_(std::move(settings)),
      host_(MakeCom<HostObject>(settings_.Services)) {
    const AmbientProperties ambients = FormAmbients();
    controls_.reserve(form_.Controls.size());
    for (const FormControl& control : form_.Controls) {
        LoadControl(control, ambients);
    }
}

AmbientProperties RunningForm::FormAmbients() const {
    AmbientProperties ambients = AmbientProperties::OfAnOrdinaryForm();
    ambients.Set(DISPID_AMBIENT_USERMODE, Variant(!settings_.Design));
    if (settings_.Locale) {
        ambients.Set(DISPID_AMBIENT_LOCALEID, Variant(static_cast<LONG>(*settings_.Locale)));
    }
    const auto take = [&](const char16_t* key, VARTYPE type, DISPID id) {
        Variant value;
        const FormProperty* const property = form_.Properties.Find(key);
        if (!property) {
            return;
        }
        Check(ToVariant(property->Value, type, value), L"read the form's " + ToWide(key));
        ambients.Set(id, std::move(value));
    };
    take(u"BackColor", VT_I4, DISPID_AMBIENT_BACKCOLOR);
    take(u"ForeColor", VT_I4, DISPID_AMBIENT_FORECOLOR);
    take(u"Font", VT_DISPATCH, DISPID_AMBIENT_FONT);
    return ambients;
}

void RunningForm::LoadControl(const FormControl& control, const AmbientProperties& ambients) {
    controls_.emplace_back(CreateControl(settings_.Dll, ToWide(control.Class)),
                           ToWide(control.Name), ambients);
    HostedControl& hosted = controls_.back();
    if (settings_.New) {
        return hosted.InitNew();
    }
    FormProperties properties = control.Properties;
    for (const char16_t* const key : {u"Left", u"Top", u"Width", u"Height"}) {
        properties.Remove(key);
    }
    // The control may keep the log for longer than the form lives.
    const auto log =
        MakeCom<ErrorLog>([report = settings_.ReportError, name = hosted.Name()](
                              const std::wstring& line) { report(name + L"." + line); });
    hosted.Load(properties, log.Get());
}

int RunningForm::RunScript(const FormScript& script) {
    StartScript(script);
    if (script_->Run(script.Code)) {
        script_->Call(L"Form_Load");
    }
    return host_->ExitCode().value_or(0);
}

void RunningForm::StartScript(const FormScript& script) {
    const std::wstring fileName = script.Path.filename().wstring();
    script_ =
        std::make_unique<ScriptHost>(script.Engine, [this, fileName](const ScriptError& error) {
            OnScriptError(fileName, error);
        });
    script_->AddObject(L"Host", host_.Get());
    for (HostedControl& control : controls_) {
        script_->AddObject(control.Name(), control.Object());
        control.ReceiveEvents(
            [this, name = control.Name()](const std::wstring& event, DISPPARAMS& arguments) {
                OnEvent(name, event, arguments);
            });
    }
}

void RunningForm::OnEvent(const std::wstring& control, const std::wstring& event,
                          DISPPARAMS& arguments) {
    if (script_ && !host_->ExitCode()) {
        script_->Call(control + L"_" + event, arguments);
    }
}

void RunningForm::OnScriptError(const std::wstring& fileName, const ScriptError& error) {
    // A script that is already to end stops by an error, too.
    if (host_->ExitCode()) {
        return;
    }
    settings_.ReportError(DescribeScriptError(error, fileName));
    host_->EndScript(1);
}

FormFile RunningForm::Save() const {
    FormFile form = form_;
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        if (!controls_[i].CanSave()) {
            continue;
        }
        FormProperties& properties = form.Controls[i].Properties;
        FormProperties saved;
        for (const FormProperty& property : properties) {
            if (IsPlacementKey(property.Key)) {
                saved.Set(property);
            }
        }
        for (const FormProperty& property : controls_[i].Save()) {
            saved.Set(property);
        }
        properties = std::move(saved);
    }
    return form;
}

void RunningForm::Close() noexcept {
    for (HostedControl& control : controls_) {
        control.Disconnect();
    }
    if (script_) {
        script_->Close();
    }
    while (!controls_.empty()) {
        controls_.pop_back();
    }
}

} // namespace Quorvane::Host
