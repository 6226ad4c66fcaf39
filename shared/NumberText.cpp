// SPDX-License-Identifier: MIT
// Doubles as texts and texts as Doubles.
#include "shared/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "shared/DecimalDigits.h"
#include "shared/DefaultArithmetic.h"
#include "shared/FisError.h"
#include "shared/TextServices.h"

namespace Quorvane {
namespace {

constexpr int SignificantDigits = 15;

std::size_t Copy(std::string_view text, std::array<char, 24>& target) noexcept {
    text.copy(target.data(), target.size());
    return text.size();
}

/// Writes a number without an exponent and returns its end.
char* WriteEveryday(double everyday, char* target) noexcept {
    constexpr std::uint64_t LowPart = 100000000;
    const auto [number, exponent] = DigitsOf(everyday);
    std::array<char, SignificantDigits> digits{};
    char* const first = digits.data();
    char* last = first + digits.size();
    // With a one before them, the last eight digits keep their zeros; the first seven replace it.
    std::to_chars(first + 6, last, static_cast<std::uint32_t>(number % LowPart + LowPart));
    std::to_chars(first, first + 7, static_cast<std::uint32_t>(number / LowPart));
    while (last[-1] == '0') {
        --last;
    }
    if (exponent < 0) {
        *target++ = '0';
        *target++ = '.';
        target = std::fill_n(target, -exponent - 1, '0');
        return std::copy(first, last, target);
    }
    char* const point = first + exponent + 1;
    if (last <= point) {
        target = std::copy(first, last, target);
        return std::fill_n(target, point - last, '0');
    }
    target = std::copy(first, point, target);
    *target++ = '.';
    return std::copy(point, last, target);
}

TextView Trimmed(TextView text) {
    constexpr TextView Blanks = u" \t";
    const auto first = text.find_first_not_of(Blanks);
    if (first == TextView::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// Takes a run of digits off the text and appends it to the number.
std::size_t TakeDigits(TextView& text, std::string& number) {
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count])) {
        number.push_back(static_cast<char>(text[count++]));
    }
    text.remove_prefix(count);
    return count;
}

/// Takes a sign off the text; the number keeps a minus sign only.
void TakeSign(TextView& text, std::string& number) {
    if (!text.empty() && (text[0] == u'+' || text[0] == u'-')) {
        if (text[0] == u'-') {
            number.push_back('-');
        }
        text.remove_prefix(1);
    }
}

/// A plain decimal rewritten with "." and "e" for std::from_chars, or nothing for any other text.
std::optional<std::string> PlainDecimal(TextView text, TextView separator) {
    text = Trimmed(text);
    std::string number;
    number.reserve(text.size());
    TakeSign(text, number);
    std::size_t digits = TakeDigits(text, number);
    if (text.starts_with(separator)) {
        text.remove_prefix(separator.size());
        number.push_back('.');
        digits += TakeDigits(text, number);
    }
    if (digits == 0) {
        return std::nullopt;
    }
    if (!text.empty() && TextView(u"eEdD").find(text[0]) != TextView::npos) {
        text.remove_prefix(1);
        number.push_back('e');
        TakeSign(text, number);
        if (TakeDigits(text, number) == 0) {
            return std::nullopt;
        }
    }
    return text.empty() ? std::optional(number) : std::nullopt;
}

/// Whether a plain decimal out of a Double's range, and so not zero, lies below it: its exponent,
/// counted from its first significant digit, is negative.
bool Underflows(std::string_view number) {
    const auto exponentMark = number.find('e');
    const auto mantissa = number.substr(0, exponentMark);
    const auto significant = mantissa.find_first_of("123456789");
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    // 64 bits, so that the sum with an exponent of 32 bits cannot overflow.
    auto exponent = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(significant);
    if (exponentMark != std::string_view::npos) {
        const auto digits = number.substr(exponentMark + 1);
        std::int32_t written = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), written);
        if (read.ec == std::errc::result_out_of_range) {
            return digits[0] == '-';
        }
        exponent += written;
    }
    return exponent < 0;
}

double Convert(const std::string& number) {
    const DefaultArithmetic arithmetic;
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        if (!Underflows(number)) {
            throw FisError(RuntimeError::Overflow);
        }
        return number[0] == '-' ? -0.0 : 0.0;
    }
    return value;
}

} // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): only the characters written are read
NumberCharacters::NumberCharacters(double value) noexcept {
    if (std::isnan(value)) {
        size_ = Copy("NAN", characters_);
    } else if (std::isinf(value)) {
        size_ = Copy(value < 0 ? "-INF" : "INF", characters_);
    } else if (value == 0) {
        size_ = Copy("0", characters_);
    } else if (IsEveryday(std::abs(value))) {
        char* const first = characters_.data();
        *first = '-';
        char* const end = WriteEveryday(std::abs(value), first + (value < 0 ? 1 : 0));
        size_ = static_cast<std::size_t>(end - first);
    } else {
        char* const first = characters_.data();
        char* const end = std::to_chars(first, first + characters_.size(), value,
                                        std::chars_format::general, SignificantDigits)
                              .ptr;
        size_ = static_cast<std::size_t>(end - first);
        // The exponent mark, where there is one, stands four or five characters from the end.
        for (std::size_t back = 4; back <= 5 && back < size_; ++back) {
            if (characters_[size_ - back] == 'e') {
                characters_[size_ - back] = 'E';
            }
        }
    }
}

Text NumberText(double value) {
    return Widen(NumberCharacters(value).View());
}

double ParseNumber(TextView text) {
    const auto number = PlainDecimal(text, u".");
    if (!number) {
        throw FisError(RuntimeError::TypeMismatch);
    }
    return Convert(*number);
}

Text UserNumberText(double value) {
    Text text = NumberText(value);
    if (const auto point = text.find(u'.'); point != Text::npos) {
        text.replace(point, 1, PlatformText().DecimalSeparator());
    }
    return text;
}

double ParseUserNumber(TextView text) {
    const TextServices& platform = PlatformText();
    const auto number = PlainDecimal(text, platform.DecimalSeparator());
    return number ? Convert(*number) : platform.NumberFromLocaleText(text);
}

} // namespace Quorvane
