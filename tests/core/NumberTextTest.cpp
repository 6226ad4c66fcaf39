// SPDX-License-Identifier: MIT
// Tests of numbers as texts and texts as numbers, case by case.
#include "shared/NumberText.h"

#include <cfloat>
#include <cmath>
#include <limits>

#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"

namespace Quorvane {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

struct WrittenNumber {
    double Number;
    const char* Written;
};

const WrittenNumber Written[] = {
    {0.0, "0"},
    {-0.0, "0"},
    {1, "1"},
    {-1, "-1"},
    {5, "5"},
    {-12.5, "-12.5"},
    {100, "100"},
    {0.5, "0.5"},
    {-0.0625, "-0.0625"},
    {0.1 + 0.2, "0.3"},
    {1 / 3.0, "0.333333333333333"},
    {2 / 3.0, "0.666666666666667"},
    {3.3, "3.3"},
    {0.001, "0.001"},
    {0.0001, "0.0001"},
    {0.00012345, "0.00012345"},
    // The double before 0.0001 rounds up to it at 15 digits, and that decides the form.
    {std::nextafter(0.0001, 0), "0.0001"},
    {0.00009999, "9.999E-05"},
    {1e-5, "1E-05"},
    {-1.5e-5, "-1.5E-05"},
    {1e-10, "1E-10"},
    {1e-99, "1E-99"},
    {1e-100, "1E-100"},
    {99999999999999, "99999999999999"},
    {100000000000000, "100000000000000"},
    {999999999999999, "999999999999999"},
    // 999999999999999.875 rounds up to 16 digits.
    {std::nextafter(1e15, 0), "1E+15"},
    {1e15, "1E+15"},
    {1e16, "1E+16"},
    {1e20, "1E+20"},
    {1.5e20, "1.5E+20"},
    {1e100, "1E+100"},
    {123456789012345, "123456789012345"},
    {123456789012345678.0, "1.23456789012346E+17"},
    {-123456789012345678.0, "-1.23456789012346E+17"},
    {9007199254740993.0, "9.00719925474099E+15"},
    {2147483647, "2147483647"},
    {1e308, "1E+308"},
    {DBL_MAX, "1.79769313486232E+308"},
    {-DBL_MAX, "-1.79769313486232E+308"},
    {DBL_MIN, "2.2250738585072E-308"},
    {Smallest, "4.94065645841247E-324"},
    {-1.23456789012345e-300, "-1.23456789012345E-300"},
    {std::numeric_limits<double>::quiet_NaN(), "NAN"},
    {-std::numeric_limits<double>::quiet_NaN(), "NAN"},
    {Infinity, "INF"},
    {-Infinity, "-INF"},
};

TEST(NumberText, WritesFifteenDigitsInTheShorterForm) {
    for (const WrittenNumber& test : Written) {
        EXPECT_EQ(NumberCharacters(test.Number).View(), test.Written);
        EXPECT_EQ(NumberText(test.Number), Widen(test.Written));
    }
}

struct ReadNumber {
    const char16_t* Written;
    double Number;
};

const ReadNumber Read[] = {
    {u"5", 5},
    {u"-5", -5},
    {u"+5", 5},
    {u"0", 0},
    {u"-0", -0.0},
    {u"007", 7},
    {u" 5", 5},
    {u"5 ", 5},
    {u"\t 5 \t", 5},
    {u" -1.5e3 ", -1500},
    {u"5.", 5},
    {u".5", 0.5},
    {u"-.5", -0.5},
    {u"+.5", 0.5},
    {u"1.e5", 1e5},
    {u".5E1", 5},
    {u"1e5", 1e5},
    {u"1E5", 1e5},
    {u"1d5", 1e5},
    {u"1D5", 1e5},
    {u"1E+5", 1e5},
    {u"1E-05", 1e-5},
    {u"1D-05", 1e-5},
    {u"1e0005", 1e5},
    {u"-5E-1", -0.5},
    {u"0.1", 0x1.999999999999ap-4},
    {u"0.3", 0x1.3333333333333p-2},
    {u"3.3", 0x1.a666666666666p+1},
    {u"100000000000000000000000", 0x1.52d02c7e14af6p+76},
    // Half way between two Doubles: to the even one. A digit more: to the upper one.
    {u"9007199254740993", 9007199254740992},
    {u"9007199254740993.0000000000000000000000000000000001", 9007199254740994},
    // Rounded to more bits first, and then to those of a Double, it would be the next one.
    {u"-91.0819195733088E33", -0x1.18aaf72c927b9p+116},
    {u"1.7976931348623157E308", DBL_MAX},
    {u"179769313486231570E291", DBL_MAX},
    {u"2.2250738585072014E-308", DBL_MIN},
    {u"2.2250738585072011E-308", 0x0.fffffffffffffp-1022},
    {u"4.94065645841247E-324", Smallest},
    // Just above half of the smallest Double.
    {u"2.4703282292062328E-324", Smallest},
};

TEST(NumberText, ReadsTheNearestDouble) {
    for (const ReadNumber& test : Read) {
        SCOPED_TRACE(Narrow(test.Written));
        EXPECT_TRUE(SameBits(test.Number, ParseNumber(test.Written)));
    }
}

TEST(NumberText, ReadsAMagnitudeBelowTheSmallestAsZero) {
    const ReadNumber cases[] = {
        {u"2.4703282292062327E-324", 0},
        {u"1E-400", 0},
        {u"-1E-400", -0.0},
        {u"0E999999999", 0},
        {u"-0E999999999999999999999", -0.0},
        {u"0.000E-5", 0},
        {u"1E-99999999999999999999999", 0},
        {u"-1E-99999999999999999999999", -0.0},
        {u"123E-9223372036854775808", 0},
        {u"0.01E-9223372036854775808", 0},
        {u"0.00001E-322", 0},
    };
    for (const ReadNumber& test : cases) {
        SCOPED_TRACE(Narrow(test.Written));
        EXPECT_TRUE(SameBits(test.Number, ParseNumber(test.Written)));
    }
    EXPECT_TRUE(SameBits(0, ParseNumber(u"0." + Text(400, u'0') + u"1")));
}

TEST(NumberText, RaisesOverflowBeyondTheLargestDouble) {
    const TextView cases[] = {
        u"1E309",
        u"-1E309",
        u"1.8E308",
        u"1.7976931348623159E308",
        // How the largest Double itself is written with 15 digits.
        u"1.79769313486232E+308",
        u"0.001E312",
        u"1E999999999999999999999999",
        u"-1E999999999999999999999999",
        u"1E9223372036854775807",
        u"11E9223372036854775807",
        u"1E2147483647",
    };
    for (const TextView test : cases) {
        EXPECT_EQ(Raised([&] { ParseNumber(test); }), PlatformError(RuntimeError::Overflow))
            << Narrow(test);
    }
    EXPECT_EQ(Raised([] { ParseNumber(Text(400, u'9')); }), PlatformError(RuntimeError::Overflow));
}

TEST(NumberText, ReadsLongDigitStringsWhoseSizeIsInRange) {
    EXPECT_TRUE(SameBits(1, ParseNumber(u"1" + Text(400, u'0') + u"E-400")));
    EXPECT_TRUE(SameBits(1, ParseNumber(u"0." + Text(399, u'0') + u"1E400")));
    EXPECT_TRUE(SameBits(0x1.999999999999ap-4, ParseNumber(u"0.1" + Text(900, u'0'))));
}

TEST(NumberText, RefusesEverythingElse) {
    const TextView cases[] = {
        u"",       u" ",      u"\t",       u"+",        u"-",     u".",      u"+.",    u"e5",
        u".e5",    u"-E5",    u"1e",       u"1e+",      u"1e-",   u"1e 5",   u"1 2",   u"- 5",
        u"+ 5",    u"5-",     u"--5",      u"+-5",      u"1,5",   u"1,000",  u"1.2.3", u"1..2",
        u"1e5.5",  u"1e5e5",  u"1d5d5",    u"1f",       u"nan",   u"NaN",    u"NAN",   u"inf",
        u"INF",    u"-inf",   u"infinity", u"0x10",     u"0X1p3", u"&H10",   u"&O17",  u"$5",
        u"(5)",    u"5%",     u"1_000",    u"True",     u"abc",   u"5\n",    u"\n5",   u"\u00A05",
        u"\uFF15", u"\u0665", u"5\u2009",  u"1\u00D75", u"5;",    u"[NONE]", u"5a",    u"a5",
    };
    for (const TextView test : cases) {
        EXPECT_EQ(Raised([&] { ParseNumber(test); }), PlatformError(RuntimeError::TypeMismatch))
            << '"' << Narrow(test) << '"';
    }
    EXPECT_EQ(Raised([] { ParseNumber(TextView(u"5\0", 2)); }),
              PlatformError(RuntimeError::TypeMismatch));
    // 0x0131 and 0x0130 would be digits to a reader that narrows first.
    EXPECT_EQ(Raised([] { ParseNumber(u"\u0131\u0130"); }),
              PlatformError(RuntimeError::TypeMismatch));
}

TEST(NumberText, KeepsThePointInDefinitionTextsWhateverTheLocale) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    EXPECT_EQ(NumberText(1.5), u"1.5");
    EXPECT_TRUE(SameBits(1.5, ParseNumber(u"1.5")));
    EXPECT_EQ(Raised([] { ParseNumber(u"1,5"); }), PlatformError(RuntimeError::TypeMismatch));
}

TEST(NumberText, WritesForTheUserWithTheUsersSeparator) {
    const TestPlatform german({}, u",");
    const TestPlatform odd({}, u"::");
    {
        const PlatformInUse inUse(german);
        EXPECT_EQ(UserNumberText(1.5), u"1,5");
        EXPECT_EQ(UserNumberText(-0.001), u"-0,001");
        EXPECT_EQ(UserNumberText(1.5e-5), u"1,5E-05");
        EXPECT_EQ(UserNumberText(1e-5), u"1E-05");
        EXPECT_EQ(UserNumberText(12), u"12");
    }
    const PlatformInUse inUse(odd);
    EXPECT_EQ(UserNumberText(1.5), u"1::5");
    EXPECT_TRUE(SameBits(1.5, ParseUserNumber(u"1::5")));
}

TEST(NumberText, ReadsPlainDecimalsOfTheUserExactly) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    EXPECT_TRUE(SameBits(0x1.999999999999ap-4, ParseUserNumber(u"0,1")));
    EXPECT_TRUE(SameBits(1500, ParseUserNumber(u" 1,5e3 ")));
    EXPECT_TRUE(SameBits(-5, ParseUserNumber(u"-5")));
    EXPECT_TRUE(SameBits(1e308, ParseUserNumber(u"1e308")));
    EXPECT_EQ(Raised([] { ParseUserNumber(u"1e309"); }), PlatformError(RuntimeError::Overflow));
}

TEST(NumberText, LeavesOtherFormsOfTheUserToThePlatform) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    EXPECT_TRUE(SameBits(12, ParseUserNumber(u"a dozen")));
    for (const TextView text : {u"1.5", u"abc", u"", u"1,5,5", u"INF"}) {
        EXPECT_EQ(Raised([&] { ParseUserNumber(text); }), PlatformError(RuntimeError::TypeMismatch))
            << Narrow(text);
    }
}

TEST(NumberText, NeutralServicesKnowNoOtherForm) {
    const TextServices& neutral = PlatformText();
    ASSERT_EQ(&neutral, &NeutralServices::Instance);
    EXPECT_EQ(neutral.DecimalSeparator(), u".");
    EXPECT_EQ(neutral.AnsiCode(0x41), 0x41);
    EXPECT_EQ(neutral.AnsiCode(0xFF), 0xFF);
    EXPECT_EQ(neutral.AnsiCode(0x100), u'?');
    EXPECT_EQ(neutral.AnsiCharacter(0xFF), 0xFF);
    EXPECT_EQ(Raised([&] { neutral.NumberFromLocaleText(u"$5"); }),
              PlatformError(RuntimeError::TypeMismatch));
    EXPECT_TRUE(SameBits(1.5, ParseUserNumber(u"1.5")));
    EXPECT_EQ(Raised([] { ParseUserNumber(u"1,5"); }), PlatformError(RuntimeError::TypeMismatch));
}

} // namespace
} // namespace Quorvane
