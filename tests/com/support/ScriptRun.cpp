// SPDX-License-Identifier: MIT
// Scripts on a placed control, run by the host's script engine as a form's code-behind is.
#include "tests/com/support/ScriptRun.h"

#include "host/container/EventSink.h"
#include "host/script/HostObject.h"
#include "host/script/ScriptHost.h"

namespace Quorvane {
namespace {

/// What the end of a script prints.
constexpr const wchar_t* EndMark = L"--- end ---";

std::wstring Widened(const std::string& text) {
    return {text.begin(), text.end()};
}

std::string Narrowed(const std::wstring& text) {
    return Narrow(Com::ToText(text.c_str()));
}

std::wstring WithEndMark(const std::string& engine, const std::string& code) {
    const std::wstring mark = std::wstring(L"(\"") + EndMark + L"\")";
    return Widened(code) + L"\nHost.Print" + mark + (engine == "JScript" ? L";" : L"");
}

} // namespace

ScriptRun RunScript(const Placed& placed, const std::string& engine, const std::string& code,
                    TextView folder) {
    ScriptRun run;
    Host::HostServices services;
    services.OutputFolder = Com::Wide(Text(folder));
    services.Print = [&run](const std::wstring& line) {
        if (line == EndMark) {
            run.ReachedEnd = true;
        } else {
            run.Lines.push_back(Narrowed(line));
        }
    };
    const auto host = Host::MakeCom<Host::HostObject>(std::move(services));
    Host::ScriptHost script(Widened(engine), [&run](const Host::ScriptError& error) {
        run.Errors.push_back(Narrowed(Host::DescribeScriptError(error, L"script")));
    });
    script.AddObject(L"Host", host.Get());
    script.AddObject(L"FIS", placed.Control.Get());
    const Host::EventConnection events(placed.Control.Get(),
                                       [&script](const std::wstring& event, DISPPARAMS& arguments) {
                                           script.Call(L"FIS_" + event, arguments);
                                       });
    const bool succeeded = script.Run(WithEndMark(engine, code));
    EXPECT_EQ(succeeded, run.Errors.empty());
    return run;
}

void ExpectLines(const Placed& placed, const std::string& engine, const std::string& code,
                 const std::vector<std::string>& lines, TextView folder) {
    SCOPED_TRACE(code);
    const ScriptRun run = RunScript(placed, engine, code, folder);
    EXPECT_EQ(run.Errors, std::vector<std::string>{});
    EXPECT_EQ(run.Lines, lines);
    EXPECT_TRUE(run.ReachedEnd) << "the script has ended early";
}

} // namespace Quorvane
