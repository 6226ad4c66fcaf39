// SPDX-License-Identifier: MIT
// main: the host program. Loads a form file and runs the script behind it.
#include "host/console/Console.h"
#include "host/container/Apartment.h"
#include "host/container/Options.h"
#include "host/container/Wide.h"
#include "host/formfile/Utf8.h"
#include "host/script/RunningForm.h"

#include <objbase.h>

namespace {

using namespace Quorvane::Host;

constexpr int Failed = 1;
constexpr int WrongUse = 2;

void PrintError(const std::wstring& line) {
    WriteConsoleLine(STD_ERROR_HANDLE, line);
}

void PrintFailure(const std::wstring& where, const std::string& utf8) {
    PrintError(where + L": " + ToWide(DecodeUtf8(utf8)));
}

FormSettings SettingsFrom(const Options& options) {
    FormSettings settings;
    settings.Dll = options.Dll;
    settings.Locale = options.Locale;
    settings.Design = options.Design;
    settings.New = options.New;
    settings.ReportError = PrintError;
    settings.Services.Print = [](const std::wstring& line) {
        WriteConsoleLine(STD_OUTPUT_HANDLE, line);
    };
    settings.Services.Options = options.Values;
    settings.Services.OutputFolder = std::filesystem::absolute(options.Output).wstring();
    return settings;
}

int RunForm(const Options& options) {
    const FormFile form = ReadFormFile(options.Form);
    const std::optional<FormScript> script = FindScript(form, options.Form);
    std::filesystem::create_directories(options.Output);
    const Apartment apartment;
    RunningForm running(form, SettingsFrom(options));
    const int exitCode = script && !options.Design ? running.RunScript(*script) : 0;
    if (options.Save) {
        SaveFormFile(*options.Save, running.Save());
    }
    return exitCode;
}

int Run(const std::vector<std::wstring>& arguments) {
    const Options options = ParseOptions(arguments);
    if (options.Help) {
        WriteConsoleLine(STD_OUTPUT_HANDLE, UsageText());
        return 0;
    }
    try {
        return RunForm(options);
    } catch (const FormFileError& error) {
        const std::wstring line = error.Line == 0 ? L"" : L"(" + std::to_wstring(error.Line) + L")";
        PrintFailure(options.Form.wstring() + line, error.what());
        return WrongUse;
    }
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    try {
        return Run({arguments + 1, arguments + count});
    } catch (const UsageError& error) {
        PrintFailure(L"QuorvaneHost", error.what());
        PrintError(L"QuorvaneHost --help shows the options.");
        return WrongUse;
    } catch (const std::exception& error) {
        PrintFailure(L"QuorvaneHost", error.what());
        return Failed;
    }
}
