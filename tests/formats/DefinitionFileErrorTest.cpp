// SPDX-License-Identifier: MIT
// Tests of what is said of files that are no plain-text definition.
#include <gtest/gtest.h>

#include "formats/DefinitionFile.h"

namespace Quorvane::Formats {
namespace {

struct Case {
    const char* Text;
    Position Where;
    const char* Message;
};

#define HEAD "[Fuzzy system 1]\n"
#define INPUTS HEAD "[Inputs]\nX/8/0\n A,0,0,2,6\n"
#define OUTPUTS INPUTS "[Outputs]\nY/16/0\n P,0\n"
#define RULES OUTPUTS "[Rules]\n"

TEST(DefinitionFileError, SaysWhereAndWhatWasExpected) {
    const Case cases[] = {
        {"", {1, 1}, "expected [Fuzzy system 1]"},
        {"[System]", {1, 1}, "expected [Fuzzy system 1]"},
        {"# no more\n\n", {3, 1}, "expected [Fuzzy system 1]"},
        {"[Fuzzy system 1", {1, 1}, "there is no \"]\" in this line"},
        {"[Fuzzy system 1] 2", {1, 18}, "expected the end of the line"},
        {HEAD "[Rules]", {2, 1}, "expected [Inputs]"},
        {HEAD "[Inputs]\nX", {3, 2}, "expected \"/\" and the upper bound of a variable"},
        {HEAD "[Inputs]\nX/8\n", {3, 4}, "expected \"/\" and the lower bound of the variable"},
        {HEAD "[Inputs]\nX/x/0", {3, 3}, "expected a number, the upper bound of the variable"},
        {HEAD "[Inputs]\nX/8/\"0\"", {3, 5}, "expected a number, the lower bound of the variable"},
        {HEAD "[Inputs]\nX/8/1E999", {3, 5}, "the number is too large"},
        {HEAD "[Inputs]\nX/8/0 9", {3, 5}, "expected a number, the lower bound of the variable"},
        {HEAD "[Inputs]\nX/8/0,9", {3, 6}, "expected the end of the line"},
        {HEAD "[Inputs]\nX,0", {3, 2}, "expected \"/\" and the upper bound of a variable"},
        {INPUTS "B,1,2", {5, 6}, "expected \",\" and one of the four points of the term"},
        {INPUTS "B,1,2,3,4,5", {5, 10}, "expected the end of the line"},
        {INPUTS "B 1,2,3,4", {5, 10}, "expected \",\" and one of the four points of the term"},
        {INPUTS "B",
         {5, 2},
         "expected \"/\" and the upper bound of a variable, or \",\" and the first point of a "
         "term"},
        {INPUTS "B,1,2,3,4;Z/1/0", {5, 12}, "expected \",\" and the first point of the term"},
        {INPUTS "B,1,2,3,4|Z,1,2,3,4", {5, 12}, "expected \"/\" and the upper bound of a variable"},
        {INPUTS "|", {5, 2}, "expected a name"},
        {INPUTS "  a,1,2,3,4", {5, 3}, "the variable has a term \"a\" already"},
        {INPUTS "\n\n  x/1/0", {7, 3}, "there is a variable \"x\" already"},
        {INPUTS "\"a/b\"/1/0", {5, 1}, "a name cannot have any of | / ; , : > <"},
        {INPUTS "\"ab", {5, 1}, "there is no closing quote in this line"},
        {INPUTS "\"a\\x\"/1/0", {5, 3}, "expected \\\", \\\\ or \\u and four hexadecimal digits"},
        {INPUTS "\"\\u12G4\"/1/0",
         {5, 2},
         "expected \\\", \\\\ or \\u and four hexadecimal digits"},
        {INPUTS "a\x01/1/0", {5, 1}, "there is a control character"},
        {INPUTS "\xF0\x9F\x98\x80\xE6\xB8\xA9/1/x",
         {5, 6},
         "expected a number, the lower bound of the variable"},
        {INPUTS "\n\xFF", {6, 0}, "the text is not UTF-8"},
        {INPUTS, {5, 1}, "expected [Outputs]"},
        {INPUTS "[Outputs]\nY/1E308/1E308", {6, 1}, "the middle of the universe is too large"},
        {INPUTS "[Outputs]\nY/1/0\nP",
         {7, 2},
         "expected \"/\" and the upper bound of a variable, or \",\" and the first point of a "
         "term"},
        {INPUTS "[Outputs]\nY/1/0\nP,x", {7, 3}, "expected a number, the position of the term"},
        {OUTPUTS, {8, 1}, "expected [Rules]"},
        {RULES "X>A", {9, 4}, "expected \"/\" and the consequents of the rule"},
        {RULES "X>A/Y<P", {9, 8}, "expected \":\" and the weight of the rule"},
        {RULES "X>A/Y<P:", {9, 9}, "expected a number, the weight of the rule"},
        {RULES "X>A/Y<P:1,5", {9, 10}, "expected the end of the line"},
        {RULES "X/Y<P:1", {9, 2}, "expected \">\" and the name of a term"},
        {RULES "X>A/Y>P:1", {9, 6}, "expected \"<\" and the name of a term"},
        {RULES "X>A;/Y<P:1", {9, 5}, "expected the name of an input"},
        {RULES "X > [any] / Y < P : 1", {9, 5}, "expected the name of a term or [NONE]"},
        {RULES "X > \"[NONE]\" / Y < P : 1", {9, 5}, "no rule can choose a term of this name"},
        {RULES "X > B / Y < P : 1", {9, 5}, "\"X\" has no term \"B\""},
        {RULES "\xE6\xB8\xA9 > A / Y < P : 1",
         {9, 1},
         "expected the name of an input, not \"\xE6\xB8\xA9\""},
        {RULES "X > A; X > A / Y < P : 1", {9, 8}, "the rule names \"X\" twice"},
        {RULES "X > A / Y < P : 1|", {9, 19}, "expected a rule"},
        {RULES "X > A / Y < P : 1 /", {9, 19}, "expected the end of the line"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.Text);
        try {
            ReadDefinitionFile(test.Text);
            ADD_FAILURE() << "no error";
        } catch (const FormatError& error) {
            EXPECT_EQ(error.Where.Line, test.Where.Line);
            EXPECT_EQ(error.Where.Column, test.Where.Column);
            EXPECT_STREQ(error.what(), test.Message);
        }
    }
}

} // namespace
} // namespace Quorvane::Formats
