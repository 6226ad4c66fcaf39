// SPDX-License-Identifier: MIT
// Text services for tests: code pages from tables, and locales made up.
#pragma once

#include <span>

#include "shared/FisError.h"
#include "shared/TextServices.h"

namespace Quorvane {

/// A character and its code in an ANSI code page.
struct CodedCharacter {
    char16_t Character;
    std::uint16_t Code;
};

/// All of code page 1252 beyond ASCII.
std::span<const CodedCharacter> CodePage1252();

/// Some characters of code page 936: its one single-byte character beyond ASCII, and double-byte
/// characters from each of its areas.
std::span<const CodedCharacter> CodePage936();

/// Text services made of what a test gives.
class TestPlatform final : public TextServices {
  public:
    explicit TestPlatform(std::span<const CodedCharacter> codePage = {}, Text separator = u".")
        : codePage_(codePage), separator_(std::move(separator)) {}

    std::uint16_t AnsiCode(char16_t character) const override {
        for (const CodedCharacter& coded : codePage_) {
            if (coded.Character == character) {
                return coded.Code;
            }
        }
        return u'?';
    }

    /// A byte that is no character by itself gives "?", as any that the table lacks.
    char16_t AnsiCharacter(std::uint8_t code) const override {
        for (const CodedCharacter& coded : codePage_) {
            if (coded.Code == code) {
                return coded.Character;
            }
        }
        return u'?';
    }

    Text DecimalSeparator() const override { return separator_; }

    /// Knows one text, "a dozen".
    double NumberFromLocaleText(TextView text) const override {
        if (text != u"a dozen") {
            throw FisError(RuntimeError::TypeMismatch);
        }
        return 12;
    }

  private:
    std::span<const CodedCharacter> codePage_;
    Text separator_;
};

/// Installs text services for as long as it lives.
class PlatformInUse {
  public:
    explicit PlatformInUse(const TextServices& services) : former_(InstallPlatformText(services)) {}
    ~PlatformInUse() { InstallPlatformText(former_); }
    PlatformInUse(const PlatformInUse&) = delete;
    PlatformInUse& operator=(const PlatformInUse&) = delete;

  private:
    const TextServices& former_;
};

} // namespace Quorvane
