// SPDX-License-Identifier: MIT
// How a thread computes in work of ours, and in code of a host in the middle of it.
#include <gtest/gtest.h>

#include <cfenv>

#include "shared/DefaultArithmetic.h"

namespace Quorvane {
namespace {

/// The direction in which the thread rounds quotients, which the platform's own function does not
/// tell of the unit that computes them.
int Rounding() {
    const volatile double one = 1;
    const volatile double three = 3;
    const volatile double ten = 10;
    // The nearest Doubles to a third and to a tenth are below the one and above the other.
    if (one / three != 0x1.5555555555555p-2) {
        return FE_UPWARD;
    }
    return one / ten == 0x1.999999999999Ap-4 ? FE_TONEAREST : FE_DOWNWARD;
}

/// The thread rounds upwards until the test ends.
class DefaultArithmeticTest : public testing::Test {
  protected:
    DefaultArithmeticTest() { std::fesetround(FE_UPWARD); }
    ~DefaultArithmeticTest() override { std::fesetround(FE_TONEAREST); }
};

TEST_F(DefaultArithmeticTest, IsThatOfTheHostAgainAtTheEnd) {
    {
        const DefaultArithmetic arithmetic;
        EXPECT_EQ(Rounding(), FE_TONEAREST);
        {
            const DefaultArithmetic inner;
            EXPECT_EQ(Rounding(), FE_TONEAREST);
        }
        EXPECT_EQ(Rounding(), FE_TONEAREST);
    }
    EXPECT_EQ(Rounding(), FE_UPWARD);
}

TEST_F(DefaultArithmeticTest, PausesForTheHostHoweverDeep) {
    const DefaultArithmetic arithmetic;
    const DefaultArithmetic inner;
    {
        const DefaultArithmetic::Pause pause;
        EXPECT_EQ(Rounding(), FE_UPWARD);
        const DefaultArithmetic::Pause second;
        EXPECT_EQ(Rounding(), FE_UPWARD);
    }
    EXPECT_EQ(Rounding(), FE_TONEAREST);
}

TEST_F(DefaultArithmeticTest, KeepsWhatTheHostChoosesInAPause) {
    {
        const DefaultArithmetic arithmetic;
        const DefaultArithmetic inner;
        const DefaultArithmetic::Pause pause;
        std::fesetround(FE_DOWNWARD);
        {
            const DefaultArithmetic ofAHandler;
            EXPECT_EQ(Rounding(), FE_TONEAREST);
        }
        EXPECT_EQ(Rounding(), FE_DOWNWARD);
    }
    EXPECT_EQ(Rounding(), FE_DOWNWARD);
}

TEST_F(DefaultArithmeticTest, LeavesAHostAloneThatIsNotInterrupted) {
    {
        const DefaultArithmetic::Pause pause;
        std::fesetround(FE_DOWNWARD);
    }
    EXPECT_EQ(Rounding(), FE_DOWNWARD);
}

} // namespace
} // namespace Quorvane
