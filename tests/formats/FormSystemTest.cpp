// SPDX-License-Identifier: MIT
// Tests of systems in form files.
#include "formats/FormSystem.h"

#include <gtest/gtest.h>

#include "host/formfile/FormFile.h"
#include "model/BuiltInDefinition.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Formats {
namespace {

const System::FuzzySystem Small =
    System::FromPlainTexts({u"X/8/0/A,0,0,2,6", u"Y/16/0/P,0", u"X>A/Y<P:1"});

/// A form with two fuzzy controls, of which the second has a text of its own, and another control.
constexpr std::string_view TwoControls = "Version 1\n"
                                         "Begin Form Room\n"
                                         "    Begin Vendor.Other Box\n"
                                         "        Inputs = \"no system\"\n"
                                         "    End\n"
                                         "    Begin QuorvaneAxEditor.FISControl One\n"
                                         "        Left = 7\n"
                                         "    End\n"
                                         "    Begin {3874be75-c265-46a4-bc3c-28cacf3c7cdc} Two\n"
                                         "        Inputs = \"85F283F203F2\"\n"
                                         "        Outputs = \"\"\n"
                                         "        Rules = \"\"\n"
                                         "    End\n"
                                         "End\n";

TEST(FormSystem, IsThatOfTheFirstControlOrOfANamedOne) {
    EXPECT_EQ(FormControlNames(TwoControls), (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(ReadFormSystem(TwoControls, "two").Inputs,
              (std::vector<System::InputVariable>{{u"X", 0, 8, {}}}));
    EXPECT_EQ(System::StoredTexts(ReadFormSystem(TwoControls)).Rules, Main::BuiltInRules());
}

TEST(FormSystem, IsReplacedAloneInAForm) {
    const std::string changed = ReplaceFormSystem(TwoControls, Small, "One");
    EXPECT_EQ(ReadFormSystem(changed, "One"), Small);
    EXPECT_EQ(ReadFormSystem(changed, "Two"), ReadFormSystem(TwoControls, "Two"));
    EXPECT_NE(changed.find("Left = 7"), std::string::npos);
    EXPECT_NE(changed.find("no system"), std::string::npos);
}

TEST(FormSystem, IsWrittenAsANewForm) {
    const std::string form = WriteFormSystem(Small, "Room");
    EXPECT_EQ(ReadFormSystem(form), Small);
    EXPECT_EQ(Host::ParseFormFile(form).Name, u"Room");
}

TEST(FormSystem, IsReadFromTheSample) {
    const auto form = Host::WriteFormFile(
        Host::ReadFormFile(std::filesystem::path(QUORVANE_SAMPLES) / "RoomHeating.form"));
    const System::FuzzySystem system = ReadFormSystem(form);
    ASSERT_EQ(system.Inputs.size(), 2U);
    EXPECT_EQ(system.Inputs[0].Name, u"TempDiff");
    EXPECT_EQ(system.Rules.size(), 13U);
    EXPECT_EQ(system.Rules.back().Weight, 0.5);
}

TEST(FormSystem, SaysWhatIsWrong) {
    const std::pair<std::string, std::string> cases[] = {
        {"Version 1\nBegin Form A\nEnd\n", "the form has no control with a fuzzy system"},
        {"Version 1\nBegin Form A\nBegin QuorvaneAxEditor.FISControl B\nInputs = 7\nEnd\nEnd\n",
         "the property Inputs of B is no text"},
        {"Version 1\nBegin Form A\nBegin QuorvaneAxEditor.FISControl B\nRules = "
         "\"85F2\"\nEnd\nEnd\n",
         "the text Rules of B, character 3: expected \":\" and a weight"},
    };
    for (const auto& [form, message] : cases) {
        try {
            ReadFormSystem(form);
            ADD_FAILURE() << "no error";
        } catch (const FormatError& error) {
            EXPECT_EQ(error.what(), message);
        }
    }
    try {
        ReadFormSystem("Version 1\nBegin Room\n");
        ADD_FAILURE() << "no error";
    } catch (const FormatError& error) {
        EXPECT_EQ(error.Where, (Position{2, 0}));
    }
    EXPECT_THROW(ReadFormSystem(TwoControls, "Three"), FormatError);
    EXPECT_THROW(WriteFormSystem({{{u"\u6E29", 0, 1, {}}}, {}, {}}, "A"), FormatError);
    EXPECT_THROW(WriteFormSystem(Small, "no identifier"), FormatError);
}

} // namespace
} // namespace Quorvane::Formats
