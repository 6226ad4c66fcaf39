// SPDX-License-Identifier: MIT
// Number text against the C library on random numbers, and the same on every platform.
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "shared/NumberText.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/Random.h"

namespace Quorvane {
namespace {

using Reference::Random;

/// FNV-1a, to compare the results of long runs between platforms.
class Digest {
  public:
    void Add(std::uint64_t bits) {
        for (int i = 0; i < 8; ++i, bits >>= 8) {
            value_ = (value_ ^ (bits & 0xFF)) * 1099511628211U;
        }
    }
    void Add(std::string_view text) {
        for (const char character : text) {
            Add(static_cast<std::uint64_t>(character));
        }
    }
    std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 14695981039346656037U;
};

/// Any finite bit pattern; or a decimal of a few digits, as people write them; or near a power of
/// ten, where the form of the text changes.
double MakeDouble(Random& random) {
    switch (random.Below(3)) {
    case 0: {
        const double number = std::bit_cast<double>(random.Bits());
        return std::isfinite(number) ? number : 1;
    }
    case 1:
        return random.Between(-1000000, 1000000) / 1000.0;
    default: {
        const std::string power = "1e" + std::to_string(random.Between(-20, 20));
        double number = std::strtod(power.c_str(), nullptr);
        for (int steps = random.Between(0, 3); steps > 0; --steps) {
            number = std::nextafter(number, 0);
        }
        return number;
    }
    }
}

/// A decimal with up to so many digits and a point and exponent anywhere.
std::string MakeDecimal(Random& random) {
    std::string text = random.Percent(50) ? "-" : "";
    const int digits = random.Between(1, random.Percent(20) ? 40 : 19);
    const int point = random.Between(0, digits);
    for (int i = 0; i < digits; ++i) {
        if (i == point) {
            text += '.';
        }
        text += static_cast<char>('0' + random.Between(0, 9));
    }
    if (random.Percent(70)) {
        text += 'E' + std::to_string(random.Between(-330, random.Percent(50) ? 20 : 265));
    }
    return text;
}

constexpr int Runs = 500000;

TEST(NumberRoundTrip, WritesWhatPrintfWrites) {
    Random random(1);
    Digest digest;
    for (int i = 0; i < Runs; ++i) {
        const double number = MakeDouble(random);
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15G", number == 0 ? 0 : number);
        const NumberCharacters written(number);
        ASSERT_EQ(written.View(), expected) << std::hexfloat << number;
        digest.Add(written.View());
    }
    EXPECT_EQ(digest.Value(), 10152504022708808348U);
}

/// A number that is written without an exponent, or just beyond: any; with a tie at the last digit
/// or next to it; or next to a power of ten.
double MakeEveryday(Random& random) {
    const double sign = random.Percent(50) ? -1 : 1;
    const double decade = std::pow(10, random.Between(-4, 15));
    const double share = static_cast<double>(random.Bits() >> 11) * 0x1p-53;
    switch (random.Below(3)) {
    case 0:
        return sign * decade * (1 + 9 * share);
    case 1: {
        // So many whole digits that those of the eighths end around the fifteenth.
        const double whole =
            std::floor(1e11 * std::pow(10, random.Between(0, 3)) * (1 + 9 * share));
        return sign * (whole + random.Between(0, 8) / 8.0);
    }
    default:
        return sign * std::nextafter(decade, random.Percent(50) ? 0 : 2 * decade);
    }
}

TEST(NumberRoundTrip, WritesEverydayNumbersAsPrintfDoes) {
    Random random(5);
    for (int i = 0; i < 4 * Runs; ++i) {
        const double number = MakeEveryday(random);
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15G", number);
        ASSERT_EQ(NumberCharacters(number).View(), expected) << std::hexfloat << number;
    }
}

TEST(NumberRoundTrip, ReadsWhatStrtodReads) {
    Random random(2);
    Digest digest;
    for (int i = 0; i < Runs; ++i) {
        const std::string text = MakeDecimal(random);
        const double number = ParseNumber(Widen(text));
        ASSERT_TRUE(SameBits(std::strtod(text.c_str(), nullptr), number)) << text;
        digest.Add(std::bit_cast<std::uint64_t>(number));
    }
    EXPECT_EQ(digest.Value(), 11002162816932026915U);
}

TEST(NumberRoundTrip, ReadsSeventeenDigitsBackToTheSameDouble) {
    Random random(3);
    for (int i = 0; i < Runs; ++i) {
        const double number = MakeDouble(random);
        char text[40];
        std::snprintf(text, sizeof text, "%.17G", number);
        ASSERT_TRUE(SameBits(number, ParseNumber(Widen(text)))) << text;
    }
}

TEST(NumberRoundTrip, WrittenTextsReadBackToTheSameText) {
    Random random(4);
    for (int i = 0; i < Runs; ++i) {
        const double number = MakeDouble(random);
        // The texts of the very largest numbers are beyond the range.
        if (std::abs(number) < 1.797e308) {
            const Text text = NumberText(number);
            ASSERT_EQ(NumberText(ParseNumber(text)), text);
        }
    }
}

} // namespace
} // namespace Quorvane
