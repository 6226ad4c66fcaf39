// SPDX-License-Identifier: MIT
// Tests of the pieces of C.
#include "code/CText.h"

#include <gtest/gtest.h>

namespace Quorvane::Code {
namespace {

TEST(NumberConstant, IsTheShortestDoubleConstant) {
    EXPECT_EQ(NumberConstant(0), "0.0");
    EXPECT_EQ(NumberConstant(-0.0), "-0.0");
    EXPECT_EQ(NumberConstant(25), "25.0");
    EXPECT_EQ(NumberConstant(0.1), "0.1");
    EXPECT_EQ(NumberConstant(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(NumberConstant(1e300), "1e+300");
    EXPECT_EQ(NumberConstant(5e-324), "5e-324");
}

TEST(Identifier, HasNothingButLettersDigitsAndLowLines) {
    EXPECT_EQ(Identifier(u"Temp_2"), "Temp_2");
    EXPECT_EQ(Identifier(u"2nd \u6E29-x"), "_2nd___x");
    EXPECT_EQ(Identifier(u""), "_");
}

TEST(UniqueIdentifiers, AreNumberedWhereTheyBecomeTheSame) {
    EXPECT_EQ(UniqueIdentifiers({u"a b", u"A-B", u"A_B_2", u"c"}),
              (std::vector<std::string>{"A_B", "A_B_2", "A_B_2_2", "C"}));
}

TEST(FunctionName, IsAnIdentifierThatIsFree) {
    for (const std::string_view name : {"tank", "Room_2", "x"}) {
        EXPECT_NO_THROW(RequireFunctionName(name));
    }
    for (const std::string_view name : {"", "_x", "2x", "a b", "for", "class", "main", "rules"}) {
        EXPECT_THROW(RequireFunctionName(name), CodeError) << name;
    }
}

TEST(InComment, CannotEndTheComment) {
    EXPECT_EQ(InComment(u"a*/b?/\\\n\u00E4"), "a__b_____");
}

TEST(IndexType, TakesTheLeastRoom) {
    EXPECT_EQ(IndexType(255), "unsigned char");
    EXPECT_EQ(IndexType(256), "unsigned short");
    EXPECT_EQ(IndexType(65536), "unsigned long");
}

} // namespace
} // namespace Quorvane::Code
