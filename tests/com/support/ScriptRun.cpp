// SPDX-License-Identifier: MIT
// Scripts on a placed control, run by the host's script engine as a form's code-behind is.
#include "tests/com/support/ScriptRun.h"

#include "host/container/EventSink.h"
#include "host/script/HostObject.h"
#include "host/script/ScriptHost.h"

namespace Quorvane {
namespace {

/// What the end of a script prints.
constexpr TextView EndMark = u"--- end ---";

Text WithEndMark(const std::string& engine, const std::string& code) {
    const Text mark = u"(\"" + Text(EndMark) + u"\")";
    return Widen(code) + u"\nHost.Print" + mark + (engine == "JScript" ? u";" : u"");
}

} // namespace

ScriptRun RunScript(const Placed& placed, const std::string& engine, const std::string& code,
                    TextView folder) {
    ScriptRun run;
    Host::HostServices services;
    services.OutputFolder = folder;
    services.Print = [&run](const Text& line) {
        if (line == EndMark) {
            run.ReachedEnd = true;
        } else {
            run.Lines.push_back(Narrow(line));
        }
    };
    const auto host = Com::MakeObject<Host::HostObject>(std::move(services));
    Host::ScriptHost script(Widen(engine), [&run](const Host::ScriptError& error) {
        run.Errors.push_back(Narrow(Host::DescribeScriptError(error, u"script")));
    });
    script.AddObject(u"Host", host.Get());
    script.AddObject(u"FIS", placed.Control.Get());
    const Host::EventConnection events(placed.Control.Get(),
                                       [&script](const Text& event, DISPPARAMS& arguments) {
                                           script.Call(u"FIS_" + event, arguments);
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
