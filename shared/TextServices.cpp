// SPDX-License-Identifier: MIT
// The text services used where no platform has installed its own.
#include "shared/TextServices.h"

#include "shared/FisError.h"

namespace Quorvane {
namespace {

class Neutral final : public TextServices {
  public:
    std::uint16_t AnsiCode(char16_t character) const override {
        return character <= 0xFF ? character : u'?';
    }
    char16_t AnsiCharacter(std::uint8_t code) const override { return code; }
    Text DecimalSeparator() const override { return u"."; }
    double NumberFromLocaleText(TextView) const override {
        throw FisError(RuntimeError::TypeMismatch);
    }
};

} // namespace

const TextServices& NeutralTextServices() {
    static const Neutral services;
    return services;
}

} // namespace Quorvane
