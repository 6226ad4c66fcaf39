// SPDX-License-Identifier: MIT
// What the portable core asks of the platform about texts: the ANSI code page and the user's
// locale.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane {

/// The platform's conversions.
class TextServices {
  public:
    virtual ~TextServices() = default;

    /// The code of a character in the ANSI code page: 0..0xFF, or lead and trail byte of a
    /// double-byte character as lead * 0x100 + trail. A character the code page lacks has the
    /// code of "?".
    virtual std::uint16_t AnsiCode(char16_t character) const = 0;

    /// The character that a single byte stands for in the ANSI code page.
    virtual char16_t AnsiCharacter(std::uint8_t code) const = 0;

    /// The user's decimal separator, one character or more.
    virtual Text DecimalSeparator() const = 0;

    /// Reads any number form that the user's locale allows, such as thousands separators and
    /// currency signs. Raises TypeMismatch or Overflow.
    virtual double NumberFromLocaleText(TextView text) const = 0;
};

/// Latin-1 as the code page and "." as the decimal separator; no other number form.
class NeutralServices final : public TextServices {
  public:
    std::uint16_t AnsiCode(char16_t character) const override;
    char16_t AnsiCharacter(std::uint8_t code) const override;
    Text DecimalSeparator() const override;
    double NumberFromLocaleText(TextView text) const override;

    static const NeutralServices Instance;
};

/// The services that the core works with: NeutralServices until others are installed.
const TextServices& PlatformText() noexcept;

/// Installs services, which have to outlive their use. Returns those in use before.
const TextServices& InstallPlatformText(const TextServices& services) noexcept;

} // namespace Quorvane
