// SPDX-License-Identifier: MIT
// Number text: reading any text against the C library, writing any Double against it.
#include <cmath>
#include <cstring>
#include <string>

#include "shared/NumberText.h"
#include "shared/Value.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

/// The accepted form: blanks, a sign, digits with at most one point, an exponent, blanks.
class Form {
  public:
    explicit Form(std::string_view text) : rest_(text) {}

    bool Accepts() {
        Skip(" \t");
        SkipOne("+-");
        std::size_t digits = Skip("0123456789");
        if (SkipOne(".")) {
            digits += Skip("0123456789");
        }
        if (digits == 0) {
            return false;
        }
        if (SkipOne("eEdD")) {
            SkipOne("+-");
            if (Skip("0123456789") == 0) {
                return false;
            }
        }
        Skip(" \t");
        return rest_.empty();
    }

  private:
    std::size_t Skip(std::string_view characters) {
        const std::size_t count = std::min(rest_.find_first_not_of(characters), rest_.size());
        rest_.remove_prefix(count);
        return count;
    }

    bool SkipOne(std::string_view characters) {
        if (rest_.empty() || characters.find(rest_[0]) == std::string_view::npos) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    std::string_view rest_;
};

void CheckReading(std::string text) {
    double number = 0;
    const auto raised = Raised([&] {
        number = ParseNumber(
            BytesAsText({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
    });
    if (!Form(text).Accepts()) {
        Check(raised && IsPlatformError(*raised, RuntimeError::TypeMismatch), "a text is refused");
        return;
    }
    for (char& character : text) {
        character = character == 'd' || character == 'D' ? 'e' : character;
    }
    const double expected = std::strtod(text.c_str(), nullptr);
    if (std::isinf(expected)) {
        Check(raised && IsPlatformError(*raised, RuntimeError::Overflow), "an overflow");
    } else {
        Check(!raised && SameBits(number, expected), "the nearest Double");
    }
}

void CheckWriting(double number) {
    const NumberCharacters written(number);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.15G", number == 0 ? 0 : number);
    if (std::isfinite(number)) {
        Check(written.View() == expected, "fifteen digits");
    }
    Check(NumberText(number) == Widen(written.View()), "the text and the characters");
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Quorvane;
    Fuzz::CheckReading(std::string(reinterpret_cast<const char*>(data), size));
    double numbers[2] = {};
    std::memcpy(numbers, data, std::min(size, sizeof numbers));
    Fuzz::CheckWriting(numbers[0]);
    for (const double other : {numbers[1], std::nextafter(numbers[0], numbers[1])}) {
        Fuzz::Check(SameNumberText(numbers[0], other) ==
                        (NumberText(numbers[0]) == NumberText(other)),
                    "numbers of the same text");
    }
    return 0;
}
