// SPDX-License-Identifier: MIT
// The text services used where no platform has installed its own.
#include "shared/TextServices.h"

#include "shared/FisError.h"

namespace Quorvane {

constinit const NeutralServices NeutralServices::Instance;

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
