// SPDX-License-Identifier: MIT
// ScriptHostTest: scripts, their objects and their errors.
#include "host/script/ScriptHost.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"
#include "host/script/HostObject.h"
#include "tests/host/Apartment.h"

namespace {

using namespace Quorvane::Host;
using Lines = std::vector<std::wstring>;

class ScriptHostTest : public InApartment {
  protected:
    void SetUp() override {
        HostServices services;
        services.Print = [this](const std::wstring& line) { printed_.push_back(line); };
        services.Options = {{L"Name", L"value"}, {L"Empty", L""}};
        services.OutputFolder = L"C:\\out";
        host_ = MakeCom<HostObject>(services);
    }

    std::unique_ptr<ScriptHost> Start(const std::wstring& engine = L"VBScript") {
        auto script = std::make_unique<ScriptHost>(
            engine, [this](const ScriptError& error) { errors_.push_back(error); });
        script->AddObject(L"Host", host_.Get());
        return script;
    }

    ComPtr<HostObject> host_;
    Lines printed_;
    std::vector<ScriptError> errors_;
};

TEST_F(ScriptHostTest, RunsTheMainPartAndThenItsProcedures) {
    for (const bool isVisualBasic : {true, false}) {
        const auto script = Start(isVisualBasic ? L"VBScript" : L"JScript");
        printed_.clear();
        ASSERT_TRUE(script->Run(
            isVisualBasic ? L"Host.Print \"main\"\nSub Go(a, b)\nHost.Print a, b\nEnd Sub"
                          : L"Host.Print('main'); function Go(a, b) { Host.Print(a, b); }"));
        EXPECT_TRUE(script->HasProcedure(L"Go"));
        EXPECT_FALSE(script->HasProcedure(L"Stop"));
        VARIANT arguments[] = {Variant(2L), Variant(1L)};
        DISPPARAMS parameters{arguments, nullptr, 2, 0};
        EXPECT_TRUE(script->Call(L"Go", parameters));
        EXPECT_TRUE(script->Call(L"Stop"));
        EXPECT_EQ(printed_, (Lines{L"main", L"1 2"}));
        EXPECT_FALSE(script->HasFailed());
    }
}

TEST_F(ScriptHostTest, ReportsEachKindOfErrorOnceWithItsPlace) {
    const struct {
        const wchar_t* Engine;
        const wchar_t* Code;
        unsigned Line;
        const wchar_t* LineText;
        HRESULT Number;
    } cases[] = {
        {L"VBScript", L"x = 1\n  Err.Raise 1234, \"me\", \"why\"", 2,
         L"Err.Raise 1234, \"me\", \"why\"", HRESULT(0x800A04D2)},
        {L"VBScript", L"Dim d\r\n\td = CInt(\"many\")\r\n", 2, L"d = CInt(\"many\")",
         HRESULT(0x800A000D)},
        {L"JScript", L"var x = 1;\nnull.go();", 2, L"null.go();", HRESULT(0x800A138F)},
        {L"JScript", L"var x = ;", 1, L"var x = ;", HRESULT(0x800A03EA)},
    };
    for (const auto& c : cases) {
        errors_.clear();
        const auto script = Start(c.Engine);
        EXPECT_FALSE(script->Run(c.Code)) << c.Code;
        EXPECT_TRUE(script->HasFailed());
        ASSERT_EQ(errors_.size(), 1u) << c.Code;
        EXPECT_EQ(errors_[0].Line, c.Line) << c.Code;
        EXPECT_EQ(errors_[0].LineText, c.LineText);
        EXPECT_EQ(errors_[0].Number, c.Number) << std::hex << errors_[0].Number;
        EXPECT_FALSE(errors_[0].Source.empty());
        EXPECT_FALSE(errors_[0].Description.empty());
    }
}

TEST_F(ScriptHostTest, ReportsASyntaxErrorAndRunsNothing) {
    const auto script = Start();
    EXPECT_FALSE(script->Run(L"Host.Print 1\nIf x Than\nHost.Print 2"));
    ASSERT_EQ(errors_.size(), 1u);
    EXPECT_EQ(errors_[0].Line, 2u);
    EXPECT_TRUE(printed_.empty());
}

TEST_F(ScriptHostTest, ReportsAnErrorInACalledProcedure) {
    for (const bool isVisualBasic : {true, false}) {
        errors_.clear();
        const auto script = Start(isVisualBasic ? L"VBScript" : L"JScript");
        ASSERT_TRUE(script->Run(isVisualBasic ? L"Sub Go\nErr.Raise 51\nEnd Sub"
                                              : L"function Go() {\nnull.x();\n}"));
        EXPECT_FALSE(script->Call(L"Go"));
        ASSERT_EQ(errors_.size(), 1u);
        EXPECT_EQ(errors_[0].Line, 2u);
    }
}

TEST_F(ScriptHostTest, AnErrorThatTheScriptHandlesIsNone) {
    const auto script = Start();
    EXPECT_TRUE(script->Run(L"On Error Resume Next\nErr.Raise 5\nHost.Print Err.Number"));
    EXPECT_EQ(printed_, Lines{L"5"});
    EXPECT_TRUE(errors_.empty());
}

TEST_F(ScriptHostTest, DescribesAnErrorAsOneReadsIt) {
    ScriptError error;
    error.Source = L"Engine";
    error.Description = L"Type mismatch";
    error.Number = HRESULT(0x800A000D);
    error.Line = 12;
    error.Column = 5;
    error.LineText = L"x = y";
    EXPECT_EQ(DescribeScriptError(error, L"a.vbs"),
              L"a.vbs(12,5): Engine 13: Type mismatch\n    x = y");
    error.Column = 0;
    error.LineText.clear();
    error.Number = HRESULT(0x80040052);
    EXPECT_EQ(DescribeScriptError(error, L"a.vbs"), L"a.vbs(12): Engine 0x80040052: Type mismatch");
}

TEST_F(ScriptHostTest, RefusesANameThatIsTakenAndAnUnknownEngine) {
    const auto script = Start();
    EXPECT_THROW(script->AddObject(L"HOST", host_.Get()), HResultError);
    EXPECT_THROW(Start(L"NoSuchScript"), HResultError);
    EXPECT_EQ(ScriptHost::EngineFor(L".VBS"), L"VBScript");
    EXPECT_EQ(ScriptHost::EngineFor(L".js"), L"JScript");
    EXPECT_EQ(ScriptHost::EngineFor(L".py"), L"");
}

TEST_F(ScriptHostTest, ClosingLetsGoOfTheObjects) {
    host_->AddRef();
    const ULONG before = host_->Release();
    {
        const auto script = Start();
        EXPECT_TRUE(script->Run(L"Dim kept\nSet kept = Host\nSub Go\nEnd Sub"));
        EXPECT_TRUE(script->Call(L"Go"));
    }
    host_->AddRef();
    EXPECT_EQ(host_->Release(), before);
}

TEST_F(ScriptHostTest, TheHostPrintsValuesOfEveryKind) {
    const auto script = Start();
    ASSERT_TRUE(script->Run(L"Dim v\nv = 7\n"
                            L"Host.Print\nHost.Print \"a\", 1, True, Null, Empty, v\n"
                            L"host.echo \"\u6E29\"\n"));
    EXPECT_EQ(printed_, (Lines{L"", L"a 1 True Null  7", L"\u6E29"}));
    EXPECT_FALSE(script->Run(L"Host.Print Array(1)"));
}

TEST_F(ScriptHostTest, TheHostGivesOptionsAndItsFolder) {
    const auto script = Start();
    ASSERT_TRUE(script->Run(
        L"Dim n\nn = \"NAME\"\n"
        L"Host.Print Host.Option(n), Host.Option(\"none\", 5)\n"
        L"Host.Print IsEmpty(Host.Option(\"none\")), \"[\" & Host.Option(\"empty\", 5) & \"]\"\n"
        L"Host.Print Host.OutputFolder"));
    EXPECT_EQ(printed_, (Lines{L"value 5", L"True []", L"C:\\out"}));
    EXPECT_FALSE(script->Run(L"x = Host.Option()"));
    EXPECT_FALSE(script->Run(L"Host.OutputFolder = 1"));
    EXPECT_FALSE(script->Run(L"Host.NoSuchThing"));
}

TEST_F(ScriptHostTest, QuitEndsTheScriptThereWithItsCode) {
    const auto script = Start();
    EXPECT_FALSE(script->Run(L"Host.Print 1\nHost.Quit 7\nHost.Print 2"));
    EXPECT_EQ(host_->ExitCode(), 7);
    EXPECT_EQ(printed_, Lines{L"1"});
    EXPECT_FALSE(script->Run(L"Host.Print 3"));
    EXPECT_EQ(printed_, Lines{L"1"});
    host_->EndScript(1);
    EXPECT_EQ(host_->ExitCode(), 7);
}

TEST_F(ScriptHostTest, QuitWithoutACodeIsSuccess) {
    const auto script = Start();
    EXPECT_FALSE(host_->ExitCode().has_value());
    EXPECT_FALSE(script->Run(L"Host.Quit \"many\""));
    EXPECT_FALSE(host_->ExitCode().has_value());
    EXPECT_FALSE(script->Run(L"Host.Quit"));
    EXPECT_EQ(host_->ExitCode(), 0);
}

} // namespace
