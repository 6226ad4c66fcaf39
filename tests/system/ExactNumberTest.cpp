// SPDX-License-Identifier: MIT
// Tests of number texts that lose nothing.
#include "system/ExactNumber.h"

#include <bit>
#include <cmath>
#include <limits>

#include "shared/NumberText.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/Random.h"

namespace Quorvane::System {
namespace {

TEST(ExactNumberText, IsTheEverydayTextWhereThatLosesNothing) {
    EXPECT_EQ(ExactNumberText(0), u"0");
    EXPECT_EQ(ExactNumberText(-0.5), u"-0.5");
    EXPECT_EQ(ExactNumberText(1e15), u"1E+15");
    EXPECT_EQ(ExactNumberText(1e-5), u"1E-05");
}

TEST(ExactNumberText, HasMoreDigitsWhereTheyAreNeeded) {
    EXPECT_EQ(ExactNumberText(-0.0), u"-0");
    EXPECT_EQ(ExactNumberText(0.1 + 0.2), u"0.30000000000000004");
    EXPECT_EQ(ExactNumberText(std::numeric_limits<double>::max()), u"1.7976931348623157E+308");
    EXPECT_EQ(ExactNumberText(std::numeric_limits<double>::denorm_min()), u"4.94065645841247E-324");
    EXPECT_EQ(ExactNumberText(std::nextafter(1.0, 2.0)), u"1.0000000000000002");
}

TEST(ExactNumberText, ReadsBackToTheSameBits) {
    Reference::Random random(31);
    int longer = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<double>(random.Bits());
        if (std::isfinite(number)) {
            ASSERT_TRUE(SameBits(number, ParseNumber(ExactNumberText(number))));
            longer += ExactNumberText(number) == NumberText(number) ? 0 : 1;
        }
    }
    EXPECT_GT(longer, 10000);
}

} // namespace
} // namespace Quorvane::System
