// SPDX-License-Identifier: MIT
// The registered control in the platform's script program.
#include <gtest/gtest.h>

#include "com/Module.h"
#include "com/Scoped.h"
#include "tests/com/support/ChildProcess.h"
#include "tests/com/support/ControlModule.h"
#include "tests/com/support/LoadedModule.h"
#include "tests/com/support/TestFolder.h"

namespace Quorvane {
namespace {

/// Registers the control for the time of a test.
class RegisteredControl : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(module_.Call("DllRegisterServer"), S_OK); }
    void TearDown() override { EXPECT_EQ(module_.Call("DllUnregisterServer"), S_OK); }

    /// Runs a script of the folder of scripts beside this program, or one by its full path.
    static ChildResult RunScriptFile(const Text& path) {
        return RunChild(u"cscript.exe //nologo \"" + path + u"\"");
    }

    static Text PathOf(TextView name) {
        const Text program = Com::ModulePath();
        return program.substr(0, program.find_last_of(u'\\')) + u"\\scripts\\" + Text(name);
    }

  private:
    LoadedModule module_;
};

TEST_F(RegisteredControl, ServesVisualBasicScript) {
    const ChildResult result = RunScriptFile(PathOf(u"Registered.vbs"));
    EXPECT_EQ(result.ExitCode, 0u);
    EXPECT_EQ(result.Output, "Quorvane Inference System, True, -2147483643, -2147483640\n"
                             "Cooling, False, -2147483643, 255\n"
                             "True, True\n"
                             "fired\n"
                             "[]\n"
                             "no values: True\n"
                             "Quorvane Inference System, True\n"
                             "382\n"
                             "13\n"
                             "13\n"
                             "438\n"
                             "-2147221422|Quorvane Controller|Invalid linguistict rule.\n"
                             "DONE\n");
}

TEST_F(RegisteredControl, ServesJavaScript) {
    const ChildResult result = RunScriptFile(PathOf(u"Registered.js"));
    EXPECT_EQ(result.ExitCode, 0u);
    EXPECT_EQ(result.Output, "Quorvane Inference System, true, -2147483643, -2147483640\n"
                             "Cooling, false, 65280, -2147483640\n"
                             "true\n"
                             "fired\n"
                             "true\n"
                             "382\n"
                             "382\n"
                             "438\n"
                             "-2147221422, Invalid linguistict rule.\n"
                             "DONE\n");
}

TEST_F(RegisteredControl, ScriptsThatFailDoNotReachTheirEnd) {
    // The script program itself can end with success then, so the mark of the end must tell.
    const TestFolder folder;
    folder.Write("early.vbs",
                 "Dim fis\r\nSet fis = CreateObject(\"QuorvaneAxEditor.FISControl\")\r\n"
                 "WScript.Echo \"begun\"\r\nfis.Inputs = \"x\"\r\nWScript.Echo \"DONE\"\r\n");
    const ChildResult result = RunScriptFile(folder.Path() + u"\\early.vbs");
    EXPECT_TRUE(result.Output.starts_with("begun\n"));
    EXPECT_EQ(result.Output.find("DONE"), std::string::npos);
}

} // namespace
} // namespace Quorvane
