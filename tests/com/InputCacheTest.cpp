// SPDX-License-Identifier: MIT
// The inputs that a cycle need not look at again: those with the text of the cycle before.
#include <cmath>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

/// The same names as Adder with the terms the other way round: Y = 128 - X once it is in force.
constexpr TextView ReversedInputs = u"X/128/-128/Low,-128,128,128,128;High,-128,-128,-128,128";

class InputCache : public ControlTest {
  protected:
    /// The output for a value that was fuzzified before the points of the terms have changed: the
    /// degrees of the cycle before, if the cache takes `second` for the same text as `first`.
    bool IsTakenForTheSame(const Com::Variant& first, const Com::Variant& second) const {
        const auto running = Run(Adder);
        const double before = FireWith(running, first);
        const auto editor = Design({ReversedInputs, Adder.Outputs, Adder.Rules});
        return FireWith(running, second) == before;
    }
};

TEST_F(InputCache, ComparesTexts) {
    const struct {
        Com::Variant First;
        Com::Variant Second;
        bool Same;
    } cases[] = {
        {Com::Variant(5.0), Com::Variant(5.0), true},
        {Com::Variant(5.0), TextValue(u"5"), true},
        {TextValue(u"5"), Com::Variant(5.0), true},
        {Com::Variant(5.0), Com::Variant(5), true},
        {Com::Variant(5.0), Typed(VT_UI1, 5), true},
        {Com::Variant(5.0), Typed(VT_I8, 5), true},
        {Com::Variant(5.0), Typed(VT_R4, 5), true},
        {Com::Variant(5.0), Typed(VT_CY, 5), true},
        {Com::Variant(5.0), Typed(VT_DECIMAL, 5), true},
        {Com::Variant(5.0), TextValue(u"5 "), false},
        {Com::Variant(5.0), TextValue(u"05"), false},
        {Com::Variant(5.0), TextValue(u"5E0"), false},
        {Com::Variant(5.0), Com::Variant(6.0), false},
        {Com::Variant(0.3), Com::Variant(0.1 + 0.2), true},
        {Com::Variant(1.0), Com::Variant(std::nextafter(1.0, 2.0)), true},
        {Com::Variant(1.0), Com::Variant(1.00000000000001), false},
        // True is written as a word, which no number is.
        {Com::Variant(-1.0), Com::Variant(true), false},
        // So is a date.
        {Com::Variant(5.0), Typed(VT_DATE, 5), false},
        // Zero has one text only.
        {Com::Variant(0.5), Com::Variant(0.5), true},
    };
    for (const auto& [first, second, same] : cases) {
        EXPECT_EQ(IsTakenForTheSame(first, second), same)
            << Describe(first) << ", " << Describe(second);
    }
}

TEST_F(InputCache, TakesTwoDoublesOfOneTextForOneValue) {
    const System ratio = {u"X/1/0/Low,0,0,0,1;High,0,1,1,1", u"Y/9/7/Zero,0;One,1",
                          u"X>Low/Y<Zero:1|X>High/Y<One:1"};
    const auto placed = Run(ratio);
    const double other = 0.1 + 0.2;
    ASSERT_NE(other, 0.3);
    const double first = FireWith(placed, 0.3);
    EXPECT_EQ(FireWith(placed, other), first);
    // A new preparation forgets the inputs.
    ASSERT_EQ(LoadSystem(placed, ratio), S_OK);
    EXPECT_NE(FireWith(placed, other), first);
}

TEST_F(InputCache, IsForgottenByEveryPreparation) {
    const auto running = Run(Adder);
    EXPECT_EQ(FireWith(running, 5), 133);
    const auto editor = Design({ReversedInputs, Adder.Outputs, Adder.Rules});
    EXPECT_EQ(FireWith(running, 5), 133) << "the degrees are those of the old points";
    const auto defaults = NewPlatformDictionary();
    PutItem(defaults, u"Y", 1);
    EXPECT_EQ(running->putref_DefOutVals(defaults.Get()), S_OK);
    EXPECT_EQ(FireWith(running, 5), 123);
}

TEST_F(InputCache, TakesTheMarkOfAnUnsetEntryForOne) {
    const auto placed = Run(Adder);
    // Every degree starts as 1: both rules fire alike.
    EXPECT_EQ(FireWith(placed, TextValue(u"[EMPTY]")), 128);
    EXPECT_EQ(FireWith(placed, 100), 228);
    EXPECT_EQ(FireWith(placed, TextValue(u"[EMPTY]")), 500) << "now it is no number";
    // The failure has unset the entry; the degrees are still those of 100.
    EXPECT_EQ(FireWith(placed, TextValue(u"[EMPTY]")), 228);
    EXPECT_EQ(FireWith(placed, TextValue(u"[empty]")), 500);
}

TEST_F(InputCache, FuzzifiesAFailedInputAgain) {
    const auto placed = Run(Adder);
    EXPECT_EQ(FireWith(placed, 5), 133);
    EXPECT_EQ(FireWith(placed, TextValue(u"five")), 500);
    EXPECT_EQ(FireWith(placed, 5), 133);
}

TEST_F(InputCache, FuzzifiesTheOtherInputsOfAFailedCycle) {
    const auto placed = Run(TwoInputs);
    const auto inputs = InVals(placed);
    PutItem(inputs, u"A", 2);
    PutItem(inputs, u"B", TextValue(u"none"));
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Sum"), 6) << "the default";
    PutItem(inputs, u"B", 3);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Sum"), 11);
}

} // namespace
} // namespace Quorvane
