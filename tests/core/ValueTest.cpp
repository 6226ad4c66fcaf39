// SPDX-License-Identifier: MIT
// Tests of the conversions and comparison of values.
#include "shared/Value.h"

#include <cfloat>
#include <cmath>
#include <limits>

#include "shared/NumberText.h"
#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"
#include "tests/core/TestValues.h"
#include "tests/reference/Random.h"

namespace Quorvane {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

class ValueTest : public CoreTest {};

TEST_F(ValueTest, OnlyTheEmptyValueIsEmpty) {
    EXPECT_TRUE(IsEmpty({}));
    EXPECT_FALSE(IsEmpty(0.0));
    EXPECT_FALSE(IsEmpty(Text()));
    EXPECT_FALSE(IsEmpty(NullValue()));
}

TEST_F(ValueTest, ConvertsToNumbers) {
    EXPECT_TRUE(SameBits(0, ToNumber({})));
    EXPECT_TRUE(SameBits(-0.0, ToNumber(-0.0)));
    EXPECT_TRUE(SameBits(1.5, ToNumber(Text(u" 1.5 "))));
    EXPECT_TRUE(SameBits(7, ToNumber(IntegerValue(7))));
    EXPECT_TRUE(SameBits(-1, ToNumber(BooleanTrue())));
    EXPECT_TRUE(SameBits(36526.5, ToNumber(DateValue())));
}

TEST_F(ValueTest, RaisesWhatAConversionRaises) {
    EXPECT_EQ(Raised([] { ToNumber(Text(u"abc")); }), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(Raised([] { ToNumber(Text(u"")); }), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(Raised([] { ToNumber(Text(u"1E999")); }), PlatformError(RuntimeError::Overflow));
    EXPECT_EQ(Raised([] { ToNumber(NullValue()); }), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(Raised([] { UserText(NullValue()); }), PlatformError(RuntimeError::TypeMismatch));
    EXPECT_EQ(Raised([] { FixedText(NullValue()); }), PlatformError(RuntimeError::TypeMismatch));
}

TEST_F(ValueTest, HasATextForTheUserAndAFixedOne) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    struct Case {
        Value Content;
        const char16_t* User;
        const char16_t* Fixed;
    };
    const Case cases[] = {
        {{}, u"", u""},
        {1.5, u"1,5", u"1.5"},
        {-0.0, u"0", u"0"},
        {Text(u"1.5"), u"1.5", u"1.5"},
        {Text(u"abc"), u"abc", u"abc"},
        {IntegerValue(7), u"7", u"7"},
        {DecimalValue(-2.25), u"-2,25", u"-2.25"},
        {BooleanTrue(), u"True", u"True"},
        {DateValue(), u"1/1/2000 12:00:00 PM", u"1/1/2000 12:00:00 PM"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Fixed));
        EXPECT_EQ(UserText(test.Content), test.User);
        EXPECT_EQ(FixedText(test.Content), test.Fixed);
    }
}

TEST_F(ValueTest, NumbersAreTheSameWhenTheirTextsAre) {
    struct Case {
        double Left;
        double Right;
        bool Same;
    };
    const Case cases[] = {
        {1, 1, true},
        {1, 2, false},
        {0.0, -0.0, true},
        {0.1 + 0.2, 0.3, true},
        {1, std::nextafter(1, 2), true},
        {1, 1.00000000000001, false},
        {1.00000000000001, 1.000000000000014, true},
        // Far below the last digit apart, but on either side of where it rounds.
        {1.0000000000000049, 1.0000000000000051, false},
        {-1, 1, false},
        {DBL_MAX, std::nextafter(DBL_MAX, 0), true},
        {DBL_MAX, -DBL_MAX, false},
        {5e-324, 0, false},
        {5e-324, 1e-323, false},
        {DBL_MIN, std::nextafter(DBL_MIN, 0), true},
        {NotANumber, NotANumber, true},
        {NotANumber, -NotANumber, true},
        {NotANumber, 1, false},
        {Infinity, Infinity, true},
        {Infinity, -Infinity, false},
        {Infinity, DBL_MAX, false},
        {Infinity, NotANumber, false},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message() << test.Left << " and " << test.Right);
        EXPECT_EQ(SameNumberText(test.Left, test.Right), test.Same);
        EXPECT_EQ(SameNumberText(test.Right, test.Left), test.Same);
        EXPECT_EQ(NumberText(test.Left) == NumberText(test.Right), test.Same);
    }
}

TEST_F(ValueTest, ComparingNumbersIsComparingTheirTexts) {
    Reference::Random random(5);
    for (int i = 0; i < 200000; ++i) {
        // Two numbers up to 255 Doubles apart; every tenth pair subnormal, with up to 20 bits.
        std::uint64_t bits = random.Bits();
        bits = i % 10 == 0 ? bits >> (44 + random.Below(20)) : bits;
        const std::uint64_t step = random.Below(256) >> random.Below(9);
        const auto left = std::bit_cast<double>(bits);
        const auto right = std::bit_cast<double>(bits + step);
        ASSERT_EQ(SameNumberText(left, right), NumberText(left) == NumberText(right))
            << std::hexfloat << left << ' ' << right;
    }
}

TEST_F(ValueTest, ComparesTextFormsWithTheCachedInput) {
    struct Case {
        std::optional<double> Cached;
        Value Content;
        bool Same;
    };
    const Case cases[] = {
        {5, 5.0, true},
        {5, 5.5, false},
        {5, Text(u"5"), true},
        {5, Text(u"5.0"), false},
        {5, Text(u" 5"), false},
        {5, IntegerValue(5), true},
        {5, IntegerValue(6), false},
        {5, Value(), false},
        {0, Value(), false},
        {0.1 + 0.2, 0.3, true},
        {0.1 + 0.2, Text(u"0.3"), true},
        {0, -0.0, true},
        {-0.0, Text(u"0"), true},
        {-1, BooleanTrue(), false},
        {36526.5, DateValue(), false},
        {1e20, Text(u"1E+20"), true},
        {1e20, Text(u"1e+20"), false},
        {NotANumber, NotANumber, true},
        {std::nullopt, 5.0, false},
        {std::nullopt, NotANumber, false},
        {std::nullopt, Value(), false},
        {std::nullopt, Text(u""), false},
        {std::nullopt, Text(u"[EMPTY]"), true},
        {std::nullopt, Text(u"[empty]"), false},
        {std::nullopt, TextValue(u"[EMPTY]"), true},
        {std::nullopt, IntegerValue(5), false},
        {5, Text(u"[EMPTY]"), false},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message() << test.Cached.value_or(-99) << " and \""
                                        << Narrow(UserText(test.Content)) << '"');
        EXPECT_EQ(SameTextForm(test.Cached, test.Content), test.Same);
    }
    EXPECT_EQ(Raised([] { SameTextForm(5, NullValue()); }),
              PlatformError(RuntimeError::TypeMismatch));
}

TEST_F(ValueTest, ComparesTextFormsInTheUsersLocale) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    EXPECT_TRUE(SameTextForm(1.5, Text(u"1,5")));
    EXPECT_FALSE(SameTextForm(1.5, Text(u"1.5")));
    EXPECT_TRUE(SameTextForm(1.5, 1.5));
}

TEST_F(ValueTest, OwnDictionaryGivesEmptyForWhatItLacksAndAddsNothing) {
    OwnValueDictionary values(KeyComparison::IgnoreCase);
    EXPECT_TRUE(IsEmpty(values.Get(u"a")));
    EXPECT_EQ(values.Items.Count(), 0U);
    values.Put(u"a", 1.0);
    values.Put(u"A", Text(u"x"));
    EXPECT_EQ(values.Get(u"a"), Value(Text(u"x")));
    EXPECT_EQ(KeysOf(values.Items), std::vector<Text>{u"a"});
}

} // namespace
} // namespace Quorvane
