// SPDX-License-Identifier: MIT
// Tests of files with the three definition texts.
#include "formats/TextsFile.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Formats {
namespace {

constexpr std::string_view Plain = "X/8/0/A,0,0,2,6\nY/16/0/P,0;Q,8\nX>A/Y<P:1\n";

TEST(TextsFile, HasALineForEachText) {
    const System::FuzzySystem system = ReadTextsFile(Plain);
    EXPECT_EQ(System::PlainTexts(system),
              (System::DefinitionTexts{u"X/8/0/A,0,0,2,6", u"Y/16/0/P,0;Q,8", u"X>A/Y<P:1"}));
    EXPECT_EQ(WritePlainTexts(system), Plain);
    const std::string stored = WriteStoredTexts(system);
    EXPECT_EQ(stored.substr(0, 8), "85F283F2");
    EXPECT_TRUE(HasStoredTexts(stored));
    EXPECT_FALSE(HasStoredTexts(Plain));
    EXPECT_EQ(ReadTextsFile(stored), system);
}

TEST(TextsFile, MayLackLines) {
    EXPECT_EQ(ReadTextsFile("\n").Inputs.size(), 0U);
    EXPECT_EQ(ReadTextsFile("\xEF\xBB\xBFX/8/0/A,0,0,2,6\r\n\r\n").Inputs.size(), 1U);
    EXPECT_EQ(ReadTextsFile(WritePlainTexts({})), System::FuzzySystem{});
}

struct Case {
    const char* Text;
    Position Where;
    const char* Message;
};

TEST(TextsFile, SaysWhereAnErrorIs) {
    const Case cases[] = {
        {"", {0, 0}, "the file is empty"},
        {"a\nb\nc\nd",
         {4, 0},
         "nothing may follow the texts of inputs, outputs and rules, a line each"},
        {"X/8/0/A,0,0,2,6\nY/16/0/P,0\nX>B/Y<P:1", {3, 3}, "\"X\" has no term \"B\""},
        {"85F283F2", {1, 5}, "expected a number"},
        {"\n\xFF", {2, 0}, "the text is not UTF-8"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.Text);
        try {
            ReadTextsFile(test.Text);
            ADD_FAILURE() << "no error";
        } catch (const FormatError& error) {
            EXPECT_EQ(error.Where, test.Where);
            EXPECT_STREQ(error.what(), test.Message);
        }
    }
}

TEST(TextsFile, RefusesToStoreWhatWouldNotBeReadBack) {
    EXPECT_THROW(WriteStoredTexts({{{u"\u6E29", 0, 1, {}}}, {}, {}}), FormatError);
    EXPECT_THROW(WriteStoredTexts({{}, {{u"Y", 0, 1, {{u"\n", 0}}}}, {}}), FormatError);
    const System::FuzzySystem latin{{{u"\u00E4", 0, 1, {}}}, {}, {}};
    EXPECT_EQ(ReadTextsFile(WriteStoredTexts(latin)), latin);
}

TEST(TextsFile, LosesNothingOfRandomSystems) {
    Reference::Random random(92);
    for (int i = 0; i < 1000; ++i) {
        const auto texts = Reference::MakeSystem(random, {.BadRules = 0});
        const auto system = System::FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
        ASSERT_EQ(ReadTextsFile(WritePlainTexts(system)), system);
        ASSERT_EQ(ReadTextsFile(WriteStoredTexts(system)), system);
    }
}

} // namespace
} // namespace Quorvane::Formats
