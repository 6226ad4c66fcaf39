// SPDX-License-Identifier: MIT
// The text services used where no platform has installed its own.
#include "shared/TextServices.h"

#include <utility>

#include "shared/FisError.h"

namespace Quorvane {

constinit const NeutralServices NeutralServices::Instance;

namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): as the locale is
constinit const TextServices* installed = &NeutralServices::Instance;

} // namespace

const TextServices& PlatformText() noexcept {
    return *installed;
}

const TextServices& InstallPlatformText(const TextServices& services) noexcept {
    return *std::exchange(installed, &services);
}

std::uint16_t NeutralServices::AnsiCode(char16_t character) const {
    return character <= 0xFF ? character : u'?';
}

char16_t NeutralServices::AnsiCharacter(std::uint8_t code) const {
    return code;
}

Text NeutralServices::DecimalSeparator() const {
    return u".";
}

double NeutralServices::NumberFromLocaleText(TextView) const {
    throw FisError(RuntimeError::TypeMismatch);
}

} // namespace Quorvane
