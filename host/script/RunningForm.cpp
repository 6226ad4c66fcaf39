// SPDX-License-Identifier: MIT
// RunningForm: a form whose controls are loaded, with the script behind it.
#include "host/script/RunningForm.h"

#include "host/container/ControlClass.h"
#include "host/container/ErrorLog.h"
#include "host/container/FormVariant.h"
#include "host/container/Paths.h"

namespace Quorvane::Host {

RunningForm::RunningForm(FormFile form, FormSettings settings)
    : form_(std::move(form)), settings_(std::move(settings)),
      host_(Com::MakeObject<HostObject>(settings_.Services)) {
    const AmbientProperties ambients = FormAmbients();
    controls_.reserve(form_.Controls.size());
    for (const FormControl& control : form_.Controls) {
        LoadControl(control, ambients);
    }
}

AmbientProperties RunningForm::FormAmbients() const {
    AmbientProperties ambients = AmbientProperties::OfAnOrdinaryForm();
    ambients.Set(DISPID_AMBIENT_USERMODE, Com::Variant(!settings_.Design));
    if (settings_.Locale) {
        ambients.Set(DISPID_AMBIENT_LOCALEID, Com::Variant(static_cast<LONG>(*settings_.Locale)));
    }
    const auto take = [&](const char16_t* key, VARTYPE type, DISPID id) {
        if (const FormProperty* const property = form_.Properties.Find(key)) {
            ambients.Set(id, ToVariant(*property, type, u"form"));
        }
    };
    take(u"BackColor", VT_I4, DISPID_AMBIENT_BACKCOLOR);
    take(u"ForeColor", VT_I4, DISPID_AMBIENT_FORECOLOR);
    take(u"Font", VT_DISPATCH, DISPID_AMBIENT_FONT);
    return ambients;
}

void RunningForm::LoadControl(const FormControl& control, const AmbientProperties& ambients) {
    controls_.emplace_back(CreateControl(settings_.Dll, control.Class), control.Name, ambients);
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
        Com::MakeObject<ErrorLog>([report = settings_.ReportError, name = hosted.Name()](
                                      const Text& line) { report(name + u"." + line); });
    hosted.Load(properties, log.Get());
}

int RunningForm::RunScript(const FormScript& script) {
    StartScript(script);
    if (script_->Run(script.Code)) {
        script_->Call(u"Form_Load");
    }
    return host_->ExitCode().value_or(0);
}

void RunningForm::StartScript(const FormScript& script) {
    const Text fileName = PathText(script.Path.filename());
    script_ =
        std::make_unique<ScriptHost>(script.Engine, [this, fileName](const ScriptError& error) {
            OnScriptError(fileName, error);
        });
    script_->AddObject(u"Host", host_.Get());
    for (HostedControl& control : controls_) {
        script_->AddObject(control.Name(), control.Object());
        control.ReceiveEvents(
            [this, name = control.Name()](const Text& event, DISPPARAMS& arguments) {
                OnEvent(name, event, arguments);
            });
    }
}

void RunningForm::OnEvent(const Text& control, const Text& event, DISPPARAMS& arguments) {
    if (script_ && !host_->ExitCode()) {
        script_->Call(control + u"_" + event, arguments);
    }
}

void RunningForm::OnScriptError(const Text& fileName, const ScriptError& error) {
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
