// SPDX-License-Identifier: MIT
// Tests of the plain-text definition file.
#include "formats/DefinitionFile.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Formats {
namespace {

using System::DefinitionTexts;
using System::FromPlainTexts;
using System::PlainTexts;

const DefinitionTexts Tank{u"Level/100/0/Low,0,0,20,80;High,20,80,100,100|Inflow/10/-0.5/",
                           u"Pump/1000/0/Off,0;Full,1000",
                           u"Level>Low;Inflow>[NONE]/Pump<Off:1|/Pump<Full:0.5|level>High/:0"};

constexpr std::string_view TankFile =
    "[Fuzzy system 1]\n"
    "\n"
    "[Inputs]\n"
    "# name / upper bound / lower bound, and a line for each term: name, its four points\n"
    "Level / 100 / 0\n"
    "    Low, 0, 0, 20, 80\n"
    "    High, 20, 80, 100, 100\n"
    "Inflow / 10 / -0.5\n"
    "\n"
    "[Outputs]\n"
    "# name / upper bound / lower bound, and a line for each term: name, its position\n"
    "Pump / 1000 / 0\n"
    "    Off, 0\n"
    "    Full, 1000\n"
    "\n"
    "[Rules]\n"
    "# inputs > terms / outputs < terms : weight\n"
    "Level > Low; Inflow > [NONE] / Pump < Off : 1\n"
    "/ Pump < Full : 0.5\n"
    "level > High / : 0\n";

TEST(DefinitionFile, HasALineForEachVariableTermAndRule) {
    EXPECT_EQ(WriteDefinitionFile(FromPlainTexts(Tank)), TankFile);
    EXPECT_EQ(PlainTexts(ReadDefinitionFile(TankFile)), Tank);
}

TEST(DefinitionFile, ReadsBlanksCommentsMarksAndLineEndsOfAnyKind) {
    const std::string text = "\xEF\xBB\xBF  # a tank\r\n\t[FUZZY SYSTEM 1] # version\r\r\n"
                             "[inputs]\rLevel/100/0\rLow,0,0,20,80#no blanks\r\r"
                             "  High ,\t20 , 80,100,100\n Inflow / +10 / -.5e0\n"
                             "[Outputs]\nPump/1000/0/\nOff,0\nFull,1000\n[Rules]\n"
                             "Level>Low;Inflow>[none]/Pump<Off:1\n\n/Pump<Full:.5\nlevel>HIGH/:0";
    EXPECT_EQ(PlainTexts(ReadDefinitionFile(text)), Tank);
}

TEST(DefinitionFile, TakesTheDefinitionTextsUnderTheirHeadings) {
    const std::string whole =
        "[Fuzzy system 1]\n[Inputs]\nLevel/100/0/Low,0,0,20,80;High,20,80,100,100|Inflow/10/-0.5/\n"
        "[Outputs]\nPump/1000/0/Off,0;Full,1000\n"
        "[Rules]\nLevel>Low;Inflow>[NONE]/Pump<Off:1|/Pump<Full:0.5|level>High/:0\n";
    EXPECT_EQ(PlainTexts(ReadDefinitionFile(whole)), Tank);
    const std::string broken =
        "[Fuzzy system 1]\n[Inputs]\nLevel/100/0/\nLow,0,0,20,80;\nHigh,20,80,100,100\n"
        "|Inflow/10/-0.5/\n[Outputs]\nPump/1000/0/Off,0\n;Full,1000\n"
        "[Rules]\nLevel>Low;\n  Inflow>[NONE]/\n  Pump<Off:1\n|/Pump<Full:0.5\n|level>High/:0\n";
    EXPECT_EQ(PlainTexts(ReadDefinitionFile(broken)), Tank);
}

TEST(DefinitionFile, QuotesNamesWhereItMust) {
    const Text names[] = {
        u"",    u" a",   u"a\t",           u"[NONE]",       u"[x",           u"\"a\"",
        u"a#b", u"a\nb", u"a\u0001\u001F", u"\xD83D",       u"\xDE00\xD83D", u"\xD83D\xDE00",
        u"a b", u"a\\b", u"a\"b\\",        u"\u6E29\u5EA6", u"Inputs",       u"a]",
        u"1",   u"-"};
    System::FuzzySystem system;
    for (const Text& name : names) {
        system.Inputs.push_back({name, 0, 1, {{name, {0, 0, 1, 1}}}});
        const auto index = static_cast<std::uint32_t>(system.Inputs.size() - 1);
        if (name != u"[NONE]") {
            system.Rules.push_back({{{index, 0, u""}}, {}, 1});
        }
    }
    const std::string file = WriteDefinitionFile(system);
    EXPECT_EQ(ReadDefinitionFile(file), system);
    EXPECT_NE(file.find("\na b / 1 / 0\n"), std::string::npos);
    EXPECT_NE(file.find("\na\\b / 1 / 0\n"), std::string::npos);
    EXPECT_NE(file.find("\n\"a\\u0001\\u001F\" / 1 / 0\n"), std::string::npos);
    EXPECT_NE(file.find("\n\"\\\"a\\\"\" / 1 / 0\n"), std::string::npos);
    EXPECT_NE(file.find("\n\xE6\xB8\xA9\xE5\xBA\xA6 / 1 / 0\n"), std::string::npos);
}

TEST(DefinitionFile, IsRecognizedByItsHeading) {
    EXPECT_TRUE(IsDefinitionFile(TankFile));
    EXPECT_TRUE(IsDefinitionFile("\xEF\xBB\xBF# x\r\n\n  [fuzzy SYSTEM 2]"));
    EXPECT_FALSE(IsDefinitionFile("[System]\nName='x'"));
    EXPECT_FALSE(IsDefinitionFile(""));
    EXPECT_FALSE(IsDefinitionFile("#"));
}

TEST(DefinitionFile, LosesNothingOfRandomSystems) {
    Reference::Random random(91);
    int systems = 0;
    for (int i = 0; i < 3000; ++i) {
        const auto texts = Reference::MakeSystem(random, {.BadRules = 0});
        const auto system = FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
        const std::string file = WriteDefinitionFile(system);
        const auto read = ReadDefinitionFile(file);
        ASSERT_EQ(PlainTexts(read), PlainTexts(system)) << file;
        ASSERT_EQ(read, system);
        ASSERT_EQ(WriteDefinitionFile(read), file);
        systems += system.Rules.size() > 2 ? 1 : 0;
    }
    EXPECT_GT(systems, 2000);
}

TEST(DefinitionFile, ChangesOneLineWhereOneTermChanges) {
    auto system = FromPlainTexts(Tank);
    const std::string before = WriteDefinitionFile(system);
    system.Inputs[0].Terms[0].Points[3] = 123.25;
    std::string after = WriteDefinitionFile(system);
    const auto place = after.find("20, 123.25");
    ASSERT_NE(place, std::string::npos);
    EXPECT_EQ(after.replace(place, 10, "20, 80"), before);
}

} // namespace
} // namespace Quorvane::Formats
