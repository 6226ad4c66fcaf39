// SPDX-License-Identifier: MIT
// main: the host program. Loads a form file and runs the script behind it.
#include <objbase.h>

#include "com/Apartment.h"
#include "host/console/Console.h"
#include "host/container/ErrorText.h"
#include "host/container/Options.h"
#include "host/container/Paths.h"
#include "host/script/RunningForm.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;

constexpr int Failed = 1;
constexpr int WrongUse = 2;

void PrintError(const Text& line) {
    WriteConsoleLine(STD_ERROR_HANDLE, line);
}

void PrintFailure(const Text& where, const std::exception& error) {
    PrintError(where + u": " + WordsOf(error));
}

FormSettings SettingsFrom(const Options& options) {
    FormSettings settings;
    settings.Dll = options.Dll;
    settings.Locale = options.Locale;
    settings.Design = options.Design;
    settings.New = options.New;
    settings.ReportError = PrintError;
    settings.Services.Print = [](const Text& line) { WriteConsoleLine(STD_OUTPUT_HANDLE, line); };
    settings.Services.Options = options.Values;
    settings.Services.OutputFolder = PathText(std::filesystem::absolute(options.Output));
    return settings;
}

int RunForm(const Options& options) {
    const FormFile form = ReadFormFile(options.Form);
    const std::optional<FormScript> script = FindScript(form, options.Form);
    std::filesystem::create_directories(options.Output);
    const Com::Apartment apartment;
    RunningForm running(form, SettingsFrom(options));
    const int exitCode = script && !options.Design ? running.RunScript(*script) : 0;
    if (options.Save) {
        SaveFormFile(*options.Save, running.Save());
    }
    return exitCode;
}

int Run(const std::vector<Text>& arguments) {
    const Options options = ParseOptions(arguments);
    if (options.Help) {
        WriteConsoleLine(STD_OUTPUT_HANDLE, UsageText());
        return 0;
    }
    try {
        return RunForm(options);
    } catch (const FormFileError& error) {
        const Text line =
            error.Line == 0 ? Text() : u"(" + Widen(std::to_string(error.Line)) + u")";
        PrintFailure(PathText(options.Form) + line, error);
        return WrongUse;
    }
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    try {
        return Run(ArgumentTexts(count, arguments));
    } catch (const UsageError& error) {
        PrintFailure(u"QuorvaneHost", error);
        PrintError(u"QuorvaneHost --help shows the options.");
        return WrongUse;
    } catch (const std::exception& error) {
        PrintFailure(u"QuorvaneHost", error);
        return Failed;
    }
}
