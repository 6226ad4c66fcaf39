// SPDX-License-Identifier: MIT
// RunningFormTest: whole forms with their scripts.
#include "host/script/RunningForm.h"

#include <fstream>

#include "com/FailedCall.h"
#include "tests/host/Apartment.h"
#include "tests/host/StandInClass.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using namespace std::string_literals;
using Lines = std::vector<Text>;

class RunningFormTest : public InApartment {
  protected:
    FormSettings Settings() {
        FormSettings settings;
        settings.ReportError = [this](const Text& line) { errors_.push_back(line); };
        settings.Services.Print = [this](const Text& line) { printed_.push_back(line); };
        return settings;
    }

    // A form with a stand-in control named Stand.
    FormFile Form(FormProperties properties = {}) {
        FormFile form;
        form.Name = u"F";
        form.Controls.push_back({class_.Name(), u"Stand", std::move(properties)});
        return form;
    }

    int Run(const Text& code, const Text& engine = u"VBScript") {
        RunningForm running(Form(), Settings());
        return running.RunScript({"form.vbs", engine, code});
    }

    StandInClass class_;
    Lines printed_;
    Lines errors_;
};

TEST_F(RunningFormTest, CallsFormLoadAfterTheMainPart) {
    EXPECT_EQ(Run(u"Host.Print \"main\"\nSub Form_Load\nHost.Print \"load\"\nEnd Sub"), 0);
    EXPECT_EQ(printed_, (Lines{u"main", u"load"}));
}

TEST_F(RunningFormTest, EventsCallTheirProcedureWhileTheScriptRuns) {
    EXPECT_EQ(
        Run(u"Sub Form_Load\nStand.Raise 1\nStand.Raise 7, \"x\"\nHost.Print \"end\"\nEnd Sub\n"
            u"Sub Stand_Started\nHost.Print \"started\"\nEnd Sub\n"
            u"Sub Stand_Changed(value)\nHost.Print \"changed\", value\nEnd Sub"),
        0);
    EXPECT_EQ(printed_, (Lines{u"started", u"changed x", u"end"}));
    printed_.clear();
    EXPECT_EQ(Run(u"function Form_Load() { Stand.Raise(7, 5); }\n"
                  u"function Stand_Changed(value) { Host.Print('js', value); }",
                  u"JScript"),
              0);
    EXPECT_EQ(printed_, Lines{u"js 5"});
}

TEST_F(RunningFormTest, AnEventHandlerMayRaiseEventsItself) {
    EXPECT_EQ(
        Run(u"Dim depth\nSub Form_Load\nStand.Raise 1\nHost.Print depth\nEnd Sub\n"
            u"Sub Stand_Started\ndepth = depth + 1\nIf depth < 20 Then Stand.Raise 1\nEnd Sub"),
        0);
    EXPECT_EQ(printed_, Lines{u"20"});
}

TEST_F(RunningFormTest, AnErrorIsReportedOnceAndEndsTheScript) {
    const char16_t* const scripts[] = {
        u"Err.Raise 13\nSub Form_Load\nHost.Print \"load\"\nEnd Sub",
        u"Sub Form_Load\nErr.Raise 13\nHost.Print \"on\"\nEnd Sub",
        u"Sub Stand_Started\nErr.Raise 13\nEnd Sub\n"
        u"Sub Form_Load\nStand.Raise 1\nStand.Raise 1\nHost.Print \"on\"\nEnd Sub",
        u"Sub Form_Load",
    };
    for (const char16_t* const script : scripts) {
        errors_.clear();
        EXPECT_EQ(Run(script), 1) << testing::PrintToString(Text(script));
        EXPECT_EQ(errors_.size(), 1u) << testing::PrintToString(Text(script));
        EXPECT_TRUE(printed_.empty()) << testing::PrintToString(Text(script));
    }
}

TEST_F(RunningFormTest, QuitGivesTheExitCodeWithoutAnError) {
    EXPECT_EQ(Run(u"Host.Quit 7\nSub Form_Load\nHost.Print \"load\"\nEnd Sub"), 7);
    EXPECT_EQ(Run(u"Sub Form_Load\nHost.Quit\nEnd Sub"), 0);
    EXPECT_EQ(Run(u"Sub Stand_Started\nHost.Quit 3\nEnd Sub\n"
                  u"Sub Form_Load\nStand.Raise 1\nHost.Print \"on\"\nEnd Sub"),
              3);
    EXPECT_TRUE(printed_.empty());
    EXPECT_TRUE(errors_.empty());
}

TEST_F(RunningFormTest, KeepsThePlaceOfAControlButDoesNotShowIt) {
    FormProperties properties;
    properties.Set({u"Left", 10});
    properties.Set({u"Caption", u"Hello"s});
    properties.Set({u"Width", 20});
    properties.Set({u"Unknown", true});
    RunningForm running(Form(properties), Settings());
    const FormFile saved = running.Save();
    FormProperties expected;
    expected.Set({u"Left", 10});
    expected.Set({u"Width", 20});
    expected.Set({u"Caption", u"Hello"s});
    expected.Set({u"Count", 0});
    EXPECT_EQ(saved.Controls.at(0).Properties, expected);
}

TEST_F(RunningFormTest, TellsTheControlsWhatTheFormAndTheSettingsSay) {
    FormFile form = Form();
    form.Properties.Set({u"BackColor", HexNumber{0x123456}});
    FormSettings settings = Settings();
    settings.Design = true;
    settings.Locale = 0x804;
    RunningForm running(form, settings);
    const AmbientProperties& ambients = running.Controls().at(0).Site().Ambients();
    Com::Variant value;
    ASSERT_EQ(ambients.Get(DISPID_AMBIENT_BACKCOLOR, &value.Get()), S_OK);
    EXPECT_EQ(value.Get().lVal, 0x123456);
    ASSERT_EQ(ambients.Get(DISPID_AMBIENT_USERMODE, &value.Get()), S_OK);
    EXPECT_EQ(value.Get().boolVal, VARIANT_FALSE);
    ASSERT_EQ(ambients.Get(DISPID_AMBIENT_LOCALEID, &value.Get()), S_OK);
    EXPECT_EQ(value.Get().lVal, 0x804);
}

TEST_F(RunningFormTest, StartsNewControlsWithoutTheirProperties) {
    FormProperties properties;
    properties.Set({u"Caption", u"Hello"s});
    FormSettings settings = Settings();
    settings.New = true;
    const RunningForm running(Form(properties), settings);
    EXPECT_EQ(running.Save().Controls.at(0).Properties.Find(u"Caption")->Value, FormValue(u""s));
}

TEST_F(RunningFormTest, NamesThePropertyThatCannotBeRead) {
    FormProperties properties;
    properties.Set({u"Count", u"many"s});
    EXPECT_THROW(RunningForm(Form(properties), Settings()), Com::HresultError);
    ASSERT_EQ(errors_.size(), 1u);
    EXPECT_EQ(errors_[0].rfind(u"Stand.Count: ", 0), 0u);
}

TEST_F(RunningFormTest, AnUnknownClassIsAnError) {
    for (const char16_t* const name :
         {u"No.Such.Class", u"{11111111-2222-3333-4444-555555555555}", u"{nonsense"}) {
        FormFile form = Form();
        form.Controls[0].Class = name;
        EXPECT_THROW(RunningForm(form, Settings()), Com::HresultError);
    }
}

TEST_F(RunningFormTest, RefusesAControlNamedLikeTheHostObject) {
    FormFile form = Form();
    form.Controls[0].Name = u"Host";
    RunningForm running(form, Settings());
    EXPECT_THROW(running.RunScript({"form.vbs", u"VBScript", u""}), Com::HresultError);
}

class FormScriptTest : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    void WriteFile(const char* name, const std::string& text) {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }

    std::optional<FormScript> Find(const FormFile& form = {}) {
        return FindScript(form, folder_ / "a.form");
    }

    FormFile Naming(FormValue script) {
        FormFile form;
        form.Properties.Set({u"Script", std::move(script)});
        return form;
    }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorvane script";
};

TEST_F(FormScriptTest, TakesTheFileOfTheSameName) {
    EXPECT_FALSE(Find().has_value());
    WriteFile("a.js", "js");
    EXPECT_EQ(Find()->Engine, u"JScript");
    WriteFile("a.vbs", "\xEF\xBB\xBF' \xE6\xB8\xA9");
    EXPECT_EQ(Find()->Engine, u"VBScript");
    EXPECT_EQ(Find()->Code, u"' \u6E29");
}

TEST_F(FormScriptTest, TakesTheFileThatTheFormNames) {
    WriteFile("a.vbs", "beside");
    WriteFile("other.JS", "named");
    EXPECT_EQ(Find(Naming(u"other.JS"s))->Code, u"named");
    EXPECT_EQ(Find(Naming(u"other.JS"s))->Engine, u"JScript");
}

TEST_F(FormScriptTest, RefusesWhatItCannotRun) {
    WriteFile("a.py", "pass");
    WriteFile("latin.vbs", "' \xE4");
    WriteFile("a.vbs", "beside");
    for (const FormValue& script :
         {FormValue(u"missing.vbs"s), FormValue(u"a.py"s), FormValue(u"latin.vbs"s),
          FormValue(u""s), FormValue(1), FormValue(u"a.py\0.vbs"s), FormValue(u"a.vbs\0.vbs"s)})
        EXPECT_THROW(Find(Naming(script)), FormFileError);
}

} // namespace
