// SPDX-License-Identifier: MIT
// RunningForm: a form whose controls are loaded, with the script behind it.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "host/container/HostedControl.h"
#include "host/script/HostObject.h"
#include "host/script/ScriptHost.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// How a form is to be run.
struct FormSettings {
    /// Library to take the controls from; none: the registered classes.
    std::optional<std::filesystem::path> Dll;
    /// The ambient LocaleID; none: the user's.
    std::optional<LCID> Locale;
    /// Design mode: ambient UserMode is false, and the script is not run.
    bool Design = false;
    /// Start the controls as new ones instead of loading their properties.
    bool New = false;
    /// Receives one line for each error: of the script, or of a property that cannot be read.
    std::function<void(const Text&)> ReportError;
    /// What the script's Host object offers.
    HostServices Services;
};

/// A script's text and where it comes from.
struct FormScript {
    std::filesystem::path Path;
    Text Engine;
    Text Code;
};

/// The script of the form file `path`: the one its "Script" property names, or else the file of the
/// same name ending in .vbs or .js; none without either.
/// Throws FormFileError if the named one is missing, is no known kind of script or is not UTF-8.
std::optional<FormScript> FindScript(const FormFile& form, const std::filesystem::path& path);

class RunningForm {
  public:
    /// Creates and loads all controls. Throws Com::HresultError; what was loaded by then is closed.
    RunningForm(FormFile form, FormSettings settings);
    RunningForm(const RunningForm&) = delete;
    RunningForm& operator=(const RunningForm&) = delete;
    ~RunningForm() { Close(); }

    /// Runs the script: its main part, then Form_Load. Gives the exit code: the one of Host.Quit, 1
    /// after an error (which has been reported), or 0.
    int RunScript(const FormScript& script);

    /// The form with the properties its controls save now. Throws Com::HresultError.
    FormFile Save() const;

    /// Closes the script, then the controls, last one first.
    void Close() noexcept;

    std::vector<HostedControl>& Controls() { return controls_; }

  private:
    AmbientProperties FormAmbients() const;
    void LoadControl(const FormControl& control, const AmbientProperties& ambients);
    void StartScript(const FormScript& script);
    void OnEvent(const Text& control, const Text& event, DISPPARAMS& arguments);
    void OnScriptError(const Text& fileName, const ScriptError& error);

    FormFile form_;
    FormSettings settings_;
    std::vector<HostedControl> controls_;
    Com::ComPtr<HostObject> host_;
    std::unique_ptr<ScriptHost> script_;
};

} // namespace Quorvane::Host
