// SPDX-License-Identifier: MIT
// The codec against the C library's code pages, and the tests' tables against the same.
#ifndef _WIN32

#include <iconv.h>

#include <stdexcept>

#include "model/TransformText.h"
#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"

namespace Quorvane {
namespace {

/// A code page of the C library.
class IconvPlatform final : public TextServices {
  public:
    explicit IconvPlatform(const char* codePage)
        : toPage_(iconv_open(codePage, "UTF-16LE")), fromPage_(iconv_open("UTF-16LE", codePage)) {
        if (toPage_ == iconv_t(-1) || fromPage_ == iconv_t(-1)) {
            throw std::runtime_error("no such code page");
        }
    }
    ~IconvPlatform() override {
        iconv_close(toPage_);
        iconv_close(fromPage_);
    }
    IconvPlatform(const IconvPlatform&) = delete;
    IconvPlatform& operator=(const IconvPlatform&) = delete;

    std::uint16_t AnsiCode(char16_t character) const override {
        unsigned char bytes[4];
        switch (Convert(toPage_, &character, sizeof character, bytes, sizeof bytes)) {
        case 1:
            return bytes[0];
        case 2:
            return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
        default:
            return u'?';
        }
    }

    char16_t AnsiCharacter(std::uint8_t code) const override {
        char16_t character = 0;
        const auto size = Convert(fromPage_, &code, 1, &character, sizeof character);
        return size == sizeof character ? character : u'?';
    }

    Text DecimalSeparator() const override { return u"."; }

    double NumberFromLocaleText(TextView) const override {
        throw FisError(RuntimeError::TypeMismatch);
    }

  private:
    /// The number of bytes that a conversion gives, 0 where it fails.
    static std::size_t Convert(iconv_t conversion, const void* from, std::size_t fromSize, void* to,
                               std::size_t toSize) {
        iconv(conversion, nullptr, nullptr, nullptr, nullptr);
        auto* source = const_cast<char*>(static_cast<const char*>(from));
        auto* target = static_cast<char*>(to);
        const std::size_t room = toSize;
        const std::size_t result = iconv(conversion, &source, &fromSize, &target, &toSize);
        return result == static_cast<std::size_t>(-1) ? 0 : room - toSize;
    }

    iconv_t toPage_;
    iconv_t fromPage_;
};

bool IsControl(char16_t character) {
    return character >= 0x80 && character < 0xA0;
}

TEST(CodePage, TheTablesAgreeWithTheLibrary) {
    const IconvPlatform western("CP1252");
    for (const auto& [character, code] : CodePage1252()) {
        // The library leaves out the five codes that stand for control characters.
        if (!IsControl(character)) {
            EXPECT_EQ(western.AnsiCode(character), code) << code;
            EXPECT_EQ(western.AnsiCharacter(static_cast<std::uint8_t>(code)), character) << code;
        }
    }
    const IconvPlatform chinese("CP936");
    for (const auto& [character, code] : CodePage936()) {
        // The library knows the euro sign by no single byte.
        if (code > 0xFF) {
            EXPECT_EQ(chinese.AnsiCode(character), code) << std::hex << code;
        }
    }
}

/// Encodes every character of the basic plane and compares with the digits of its code.
void ExpectCodesOf(const char* codePage, std::uint32_t doubleByteCount) {
    const IconvPlatform platform(codePage);
    const PlatformInUse inUse(platform);
    std::uint32_t doubleBytes = 0;
    for (std::uint32_t unit = 0x80; unit <= 0xFFFF; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        const std::uint32_t code = platform.AnsiCode(character);
        Text digits;
        for (std::uint32_t rest = code; rest != 0; rest /= 16) {
            digits += u"0123456789ABCDEF"[rest % 16];
        }
        ASSERT_EQ(Main::TransformText(Text(1, character), true), digits) << std::hex << unit;
        if (code > 0xFF) {
            ++doubleBytes;
            ASSERT_EQ(digits.size(), 4U);
        } else if (code >= 0x80) {
            ASSERT_EQ(Main::TransformText(digits, false), Text(1, character)) << std::hex << unit;
        }
    }
    EXPECT_GE(doubleBytes, doubleByteCount);
    EXPECT_EQ(doubleBytes == 0, doubleByteCount == 0);
}

TEST(CodePage, WesternCharactersTakeTwoDigits) {
    ExpectCodesOf("CP1252", 0);
}

TEST(CodePage, ChineseCharactersTakeFourDigits) {
    ExpectCodesOf("CP936", 20000);
}

} // namespace
} // namespace Quorvane

#endif
