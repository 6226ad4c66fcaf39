// SPDX-License-Identifier: MIT
// ProgramTest: the host program as a whole, with the real control.
#include "host/formfile/FormFile.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "host/container/Paths.h"
#include "tests/com/support/ChildProcess.h"
#include "tests/com/support/TestFolder.h"

namespace {

using namespace Quorvane;

// A form whose one control has no saved system: the one that is built in.
constexpr const char* Form = "Version 1\n"
                             "Begin Form F\n"
                             "    Begin QuorvaneAxEditor.FISControl FIS\n"
                             "        Caption = \"Kept\"\n"
                             "    End\n"
                             "End\n";

class ProgramTest : public testing::Test {
  protected:
    void SetUp() override { folder_.Write("a.form", Form); }

    // Full paths of what this build has made; the ways are relative, as the tree can be moved.
    static Text BuiltFile(const char* way) {
        wchar_t program[MAX_PATH]{};
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        const auto path = std::filesystem::path(program).parent_path() / way;
        return Host::PathText(std::filesystem::weakly_canonical(path));
    }

    Text InFolder(TextView name) const { return folder_.Path() + u"\\" + Text(name); }

    // Runs the program with the control of this build.
    ChildResult Run(const Text& arguments) const {
        return RunChild(u"\"" + BuiltFile(QUORVANE_PRODUCTS "\\QuorvaneHost.exe") + u"\" --dll \"" +
                        BuiltFile(QUORVANE_PRODUCTS "\\QuorvaneAxEditor.ocx") + u"\" " + arguments);
    }

    // Runs the form with a script beside it.
    ChildResult RunScript(const char* script, const Text& arguments = {}) const {
        folder_.Write("a.vbs", script);
        return Run(arguments + u" --output \"" + InFolder(u"made\\here") + u"\" \"" +
                   InFolder(u"a.form") + u"\" Name=value");
    }

    static void Expect(const ChildResult& result, DWORD exitCode, const std::string& output) {
        EXPECT_EQ(result.ExitCode, exitCode);
        EXPECT_EQ(result.Output, output);
    }

    // An error's line, which begins with the file's full path.
    void ExpectFailure(const ChildResult& result, DWORD exitCode, TextView file,
                       const std::string& rest) const {
        EXPECT_EQ(result.ExitCode, exitCode);
        std::string name;
        for (const char16_t c : file.empty() ? Text(u"QuorvaneHost") : InFolder(file))
            name += static_cast<char>(c);
        EXPECT_TRUE(result.Output.starts_with(name + rest)) << result.Output;
    }

    TestFolder folder_;
};

TEST_F(ProgramTest, RunsAFormWithItsScriptEventsAndFiles) {
    Expect(RunScript("Sub Form_Load\nHost.Print \"load\", FIS.Caption, Host.Option(\"name\")\n"
                     "FIS.Fire\nFIS.BatchData Host.OutputFolder, 1\nHost.Print \"DONE\"\nEnd Sub\n"
                     "Sub FIS_InferComplate\nHost.Print FIS.OutVals.Count > 0\nEnd Sub\n"
                     "Host.Print \"main \xE6\xB8\xA9\"\n"),
           0, "main \xE6\xB8\xA9\nload Kept value\nTrue\nTrue\nTrue\nTrue\nTrue\nDONE\n");
    EXPECT_TRUE(std::filesystem::exists(folder_.File("made/here/InData.txt")));
    EXPECT_TRUE(std::filesystem::exists(folder_.File("made/here/OutData.txt")));
}

TEST_F(ProgramTest, GivesTheExitCodeOfTheScript) {
    Expect(RunScript("Host.Print 1\nHost.Quit 7\nHost.Print 2"), 7, "1\n");
    Expect(RunScript("Host.Print 1"), 0, "1\n");
}

TEST_F(ProgramTest, ReportsAnErrorOfTheScriptWithItsPlace) {
    const ChildResult result = RunScript("Host.Print 1\nFIS.Inputs = \"x\"\nHost.Print 2");
    EXPECT_EQ(result.ExitCode, 1u);
    EXPECT_TRUE(result.Output.starts_with("1\na.vbs(2")) << result.Output;
    EXPECT_NE(result.Output.find("382"), std::string::npos) << result.Output;
    EXPECT_EQ(result.Output.find("\n2\n"), std::string::npos) << result.Output;
}

TEST_F(ProgramTest, ReportsASystemThatDoesNotLoad) {
    std::string form = Form;
    form.insert(form.find("    End\n"), "        Rules = \"x\"\n");
    folder_.Write("a.form", form);
    ExpectFailure(RunScript("Host.Print 1"), 1, u"", ": cannot load FIS: ");
}

TEST_F(ProgramTest, ReportsAFormThatCannotBeRead) {
    folder_.Write("a.form", "Version 1\nBegin Form F\nnonsense\nEnd\n");
    ExpectFailure(RunScript("Host.Print 1"), 2, u"a.form", "(3): ");
    ExpectFailure(Run(u"\"" + InFolder(u"none.form") + u"\""), 2, u"none.form", ": ");
}

TEST_F(ProgramTest, ReportsWrongUse) {
    for (const TextView arguments : {TextView(u""), TextView(u"--locale many a.form"),
                                     TextView(u"--nonsense"), TextView(u"a.form value")}) {
        ExpectFailure(Run(Text(arguments)), 2, u"", ": ");
    }
    const ChildResult help = Run(u"--help");
    EXPECT_EQ(help.ExitCode, 0u);
    EXPECT_TRUE(help.Output.starts_with("Usage: QuorvaneHost"));
}

TEST_F(ProgramTest, SavesTheFormAsTheScriptLeavesIt) {
    folder_.Write("a.vbs", "FIS.Caption = \"Changed\"\nFIS.Enabled = False\n");
    const Text paths = u"--save \"" + InFolder(u"b.form") + u"\" \"" + InFolder(u"a.form") + u"\"";
    Expect(Run(paths), 0, "");
    const Host::FormFile saved = Host::ReadFormFile(folder_.File("b.form"));
    Host::FormProperties expected;
    expected.Set({u"Caption", Text(u"Changed")});
    expected.Set({u"Enabled", false});
    ASSERT_EQ(saved.Controls.size(), 1u);
    EXPECT_EQ(saved.Controls[0].Properties, expected);
    EXPECT_EQ(folder_.Read("a.form"), Form);
}

TEST_F(ProgramTest, DoesNotRunTheScriptInDesignMode) {
    Expect(RunScript("Host.Print 1", u"--design"), 0, "");
}

TEST_F(ProgramTest, StartsNewControlsWithTheirDefaults) {
    Expect(RunScript("Host.Print FIS.Caption", u"--new --locale 0x804"), 0,
           "Quorvane Inference System\n");
}

TEST_F(ProgramTest, HostsTwoControlsOnOneSystemWithEventsOfTheirOwn) {
    folder_.Write("a.form", "Version 1\nBegin Form F\nBegin QuorvaneAxEditor.FISControl.1 A\nEnd\n"
                            "Begin QuorvaneAxEditor.FISControl.1 B\nEnd\nEnd\n");
    Expect(RunScript("Sub A_InferComplate\nHost.Print \"A\"\nEnd Sub\n"
                     "Sub B_InferComplate\nHost.Print \"B\"\nEnd Sub\n"
                     "B.Fire\nA.Fire\nHost.Print A.InVals Is B.InVals",
                     u"--locale 1033"),
           0, "B\nA\nTrue\n");
}

} // namespace
