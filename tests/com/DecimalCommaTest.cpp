// SPDX-License-Identifier: MIT
// What follows the user's decimal separator, and what never does: texts that others read.
#include "tests/com/support/DecimalComma.h"
#include "tests/com/support/BatchTest.h"

namespace Quorvane {
namespace {

/// Y = X + 0.5 for X in -0.5..0.5, with the default 7.25.
constexpr System Decimals = {
    u"X/0.5/-0.5/Low,-0.5,-0.5,-0.5,0.5;High,-0.5,0.5,0.5,0.5",
    u"Y/14.5/0/Zero,0;One,1",
    u"X>Low/Y<Zero:0.5|X>High/Y<One:0.5",
};

class UserWithADecimalComma : public BatchTest {
  private:
    DecimalComma comma_;
};

TEST_F(UserWithADecimalComma, ReadsFormsOfOthers) {
    const auto placed = Run(Decimals);
    EXPECT_EQ(FireWith(placed, 0.25), 0.75);
    EXPECT_EQ(FireWith(placed, 3), 7.25);
    EXPECT_TRUE(FAILED(LoadSystem(placed, {u"X/0,5/0/Low,0,0,0,1", u"", u""})));
}

TEST_F(UserWithADecimalComma, GetsTheSameBatchFiles) {
    const auto placed = Run(Decimals);
    Batch(placed, 4);
    ExpectFiles("-0.5\r\n-0.25\r\n0\r\n0.25\r\n0.5\r\n", "0 \r\n0.25 \r\n0.5 \r\n0.75 \r\n1 \r\n");
    ASSERT_EQ(LoadSystem(placed, Silent(u"X/1E-05/-1.5E+20/A,0,0,0,0")), S_OK);
    Batch(placed, 2);
    ExpectFiles("-1.5E+20\r\n-7.5E+19\r\n1E-05\r\n", "500 \r\n500 \r\n500 \r\n");
}

TEST_F(UserWithADecimalComma, GetsTheSameBatchFilesWithValuesOfAnyType) {
    const auto placed = Run(Silent(Adder.Inputs));
    const auto defaults = NewPlatformDictionary();
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    const struct {
        Com::Variant Value;
        const char* Expected;
    } cases[] = {
        {Com::Variant(-1.5), "-1.5"},         {Typed(VT_R4, 2.5), "2.5"},
        {Typed(VT_CY, -2.25), "-2.25"},       {Typed(VT_DECIMAL, 4.5), "4.5"},
        {Typed(VT_I4, 1234567), "1234567"},   {Com::Variant(1234567.5), "1234567.5"},
        {TextValue(u"as,it.is"), "as,it.is"},
    };
    for (const auto& [value, expected] : cases) {
        PutItem(defaults, u"Y", value);
        Batch(placed, 1);
        const std::string line = std::string(expected) + " \r\n";
        ExpectFiles("-128\r\n128\r\n", line + line);
    }
}

TEST_F(UserWithADecimalComma, TypesNumbersWithIt) {
    const auto placed = Run(Decimals);
    EXPECT_EQ(FireWith(placed, TextValue(u"0,25")), 0.75);
    EXPECT_EQ(FireWith(placed, TextValue(u" -2,5E-1 ")), 0.25);
    EXPECT_EQ(FireWith(placed, TextValue(u"none")), 7.25);
}

TEST_F(UserWithADecimalComma, KeepsTheTextsOfItsForms) {
    const auto placed = Design(Decimals);
    const auto bag = SaveToBag(placed, true);
    EXPECT_EQ(Com::View(bag->Values[u"Inputs"].Get().bstrVal), Stored(Decimals.Inputs));
    EXPECT_EQ(Com::View(bag->Values[u"Rules"].Get().bstrVal), Stored(Decimals.Rules));
}

} // namespace
} // namespace Quorvane
