// SPDX-License-Identifier: MIT
// ScriptHostTest: scripts, their objects and their errors.
#include "host/script/ScriptHost.h"

#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/script/HostObject.h"
#include "tests/host/Apartment.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using Lines = std::vector<Text>;

class ScriptHostTest : public InApartment {
  protected:
    void SetUp() override {
        HostServices services;
        services.Print = [this](const Text& line) { printed_.push_back(line); };
        services.Options = {{u"Name", u"value"}, {u"Empty", u""}};
        services.OutputFolder = u"C:\\out";
        host_ = Com::MakeObject<HostObject>(services);
    }

    std::unique_ptr<ScriptHost> Start(const Text& engine = u"VBScript") {
        auto script = std::make_unique<ScriptHost>(
            engine, [this](const ScriptError& error) { errors_.push_back(error); });
        script->AddObject(u"Host", host_.Get());
        return script;
    }

    Com::ComPtr<HostObject> host_;
    Lines printed_;
    std::vector<ScriptError> errors_;
};

TEST_F(ScriptHostTest, RunsTheMainPartAndThenItsProcedures) {
    for (const bool isVisualBasic : {true, false}) {
        const auto script = Start(isVisualBasic ? u"VBScript" : u"JScript");
        printed_.clear();
        ASSERT_TRUE(script->Run(
            isVisualBasic ? u"Host.Print \"main\"\nSub Go(a, b)\nHost.Print a, b\nEnd Sub"
                          : u"Host.Print('main'); function Go(a, b) { Host.Print(a, b); }"));
        EXPECT_TRUE(script->HasProcedure(u"Go"));
        EXPECT_FALSE(script->HasProcedure(u"Stop"));
        VARIANT arguments[] = {Com::Variant(2).Get(), Com::Variant(1).Get()};
        DISPPARAMS parameters{arguments, nullptr, 2, 0};
        EXPECT_TRUE(script->Call(u"Go", parameters));
        EXPECT_TRUE(script->Call(u"Stop"));
        EXPECT_EQ(printed_, (Lines{u"main", u"1 2"}));
        EXPECT_FALSE(script->HasFailed());
    }
}

TEST_F(ScriptHostTest, ReportsEachKindOfErrorOnceWithItsPlace) {
    const struct {
        const char16_t* Engine;
        const char16_t* Code;
        unsigned Line;
        const char16_t* LineText;
        HRESULT Number;
    } cases[] = {
        {u"VBScript", u"x = 1\n  Err.Raise 1234, \"me\", \"why\"", 2,
         u"Err.Raise 1234, \"me\", \"why\"", HRESULT(0x800A04D2)},
        {u"VBScript", u"Dim d\r\n\td = CInt(\"many\")\r\n", 2, u"d = CInt(\"many\")",
         HRESULT(0x800A000D)},
        {u"JScript", u"var x = 1;\nnull.go();", 2, u"null.go();", HRESULT(0x800A138F)},
        {u"JScript", u"var x = ;", 1, u"var x = ;", HRESULT(0x800A03EA)},
    };
    for (const auto& c : cases) {
        errors_.clear();
        const auto script = Start(c.Engine);
        EXPECT_FALSE(script->Run(c.Code)) << testing::PrintToString(Text(c.Code));
        EXPECT_TRUE(script->HasFailed());
        ASSERT_EQ(errors_.size(), 1u) << testing::PrintToString(Text(c.Code));
        EXPECT_EQ(errors_[0].Line, c.Line) << testing::PrintToString(Text(c.Code));
        EXPECT_EQ(errors_[0].LineText, c.LineText);
        EXPECT_EQ(errors_[0].Number, c.Number) << std::hex << errors_[0].Number;
        EXPECT_FALSE(errors_[0].Source.empty());
        EXPECT_FALSE(errors_[0].Description.empty());
    }
}

TEST_F(ScriptHostTest, ReportsASyntaxErrorAndRunsNothing) {
    const auto script = Start();
    EXPECT_FALSE(script->Run(u"Host.Print 1\nIf x Than\nHost.Print 2"));
    ASSERT_EQ(errors_.size(), 1u);
    EXPECT_EQ(errors_[0].Line, 2u);
    EXPECT_TRUE(printed_.empty());
}

TEST_F(ScriptHostTest, ReportsAnErrorInACalledProcedure) {
    for (const bool isVisualBasic : {true, false}) {
        errors_.clear();
        const auto script = Start(isVisualBasic ? u"VBScript" : u"JScript");
        ASSERT_TRUE(script->Run(isVisualBasic ? u"Sub Go\nErr.Raise 51\nEnd Sub"
                                              : u"function Go() {\nnull.x();\n}"));
        EXPECT_FALSE(script->Call(u"Go"));
        ASSERT_EQ(errors_.size(), 1u);
        EXPECT_EQ(errors_[0].Line, 2u);
    }
}

TEST_F(ScriptHostTest, AnErrorThatTheScriptHandlesIsNone) {
    const auto script = Start();
    EXPECT_TRUE(script->Run(u"On Error Resume Next\nErr.Raise 5\nHost.Print Err.Number"));
    EXPECT_EQ(printed_, Lines{u"5"});
    EXPECT_TRUE(errors_.empty());
}

TEST_F(ScriptHostTest, DescribesAnErrorAsOneReadsIt) {
    ScriptError error;
    error.Source = u"Engine";
    error.Description = u"Type mismatch";
    error.Number = HRESULT(0x800A000D);
    error.Line = 12;
    error.Column = 5;
    error.LineText = u"x = y";
    EXPECT_EQ(DescribeScriptError(error, u"a.vbs"),
              u"a.vbs(12,5): Engine 13: Type mismatch\n    x = y");
    error.Column = 0;
    error.LineText.clear();
    error.Number = HRESULT(0x80040052);
    EXPECT_EQ(DescribeScriptError(error, u"a.vbs"), u"a.vbs(12): Engine 0x80040052: Type mismatch");
}

TEST_F(ScriptHostTest, RefusesANameThatIsTakenAndAnUnknownEngine) {
    const auto script = Start();
    EXPECT_THROW(script->AddObject(u"HOST", host_.Get()), Com::HresultError);
    EXPECT_THROW(Start(u"NoSuchScript"), Com::HresultError);
    EXPECT_EQ(ScriptHost::EngineFor(u".VBS"), u"VBScript");
    EXPECT_EQ(ScriptHost::EngineFor(u".js"), u"JScript");
    EXPECT_EQ(ScriptHost::EngineFor(u".py"), u"");
}

TEST_F(ScriptHostTest, ClosingLetsGoOfTheObjects) {
    host_->AddRef();
    const ULONG before = host_->Release();
    {
        const auto script = Start();
        EXPECT_TRUE(script->Run(u"Dim kept\nSet kept = Host\nSub Go\nEnd Sub"));
        EXPECT_TRUE(script->Call(u"Go"));
    }
    host_->AddRef();
    EXPECT_EQ(host_->Release(), before);
}

TEST_F(ScriptHostTest, TheHostPrintsValuesOfEveryKind) {
    const auto script = Start();
    ASSERT_TRUE(script->Run(u"Dim v\nv = 7\n"
                            u"Host.Print\nHost.Print \"a\", 1, True, Null, Empty, v\n"
                            u"host.echo \"\u6E29\"\n"));
    EXPECT_EQ(printed_, (Lines{u"", u"a 1 True Null  7", u"\u6E29"}));
    EXPECT_FALSE(script->Run(u"Host.Print Array(1)"));
}

TEST_F(ScriptHostTest, TheHostGivesOptionsAndItsFolder) {
    const auto script = Start();
    ASSERT_TRUE(script->Run(
        u"Dim n\nn = \"NAME\"\n"
        u"Host.Print Host.Option(n), Host.Option(\"none\", 5)\n"
        u"Host.Print IsEmpty(Host.Option(\"none\")), \"[\" & Host.Option(\"empty\", 5) & \"]\"\n"
        u"Host.Print Host.OutputFolder"));
    EXPECT_EQ(printed_, (Lines{u"value 5", u"True []", u"C:\\out"}));
    EXPECT_FALSE(script->Run(u"x = Host.Option()"));
    EXPECT_FALSE(script->Run(u"Host.OutputFolder = 1"));
    EXPECT_FALSE(script->Run(u"Host.NoSuchThing"));
}

TEST_F(ScriptHostTest, QuitEndsTheScriptThereWithItsCode) {
    const auto script = Start();
    EXPECT_FALSE(script->Run(u"Host.Print 1\nHost.Quit 7\nHost.Print 2"));
    EXPECT_EQ(host_->ExitCode(), 7);
    EXPECT_EQ(printed_, Lines{u"1"});
    EXPECT_FALSE(script->Run(u"Host.Print 3"));
    EXPECT_EQ(printed_, Lines{u"1"});
    host_->EndScript(1);
    EXPECT_EQ(host_->ExitCode(), 7);
}

TEST_F(ScriptHostTest, QuitWithoutACodeIsSuccess) {
    const auto script = Start();
    EXPECT_FALSE(host_->ExitCode().has_value());
    EXPECT_FALSE(script->Run(u"Host.Quit \"many\""));
    EXPECT_FALSE(host_->ExitCode().has_value());
    EXPECT_FALSE(script->Run(u"Host.Quit"));
    EXPECT_EQ(host_->ExitCode(), 0);
}

} // namespace
