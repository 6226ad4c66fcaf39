// SPDX-License-Identifier: MIT
// A user whose numbers have a decimal comma.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane {

/// While it lives, the user's regional settings have a comma as the decimal separator, and a
/// point between thousands, as in Germany.
class DecimalComma {
  public:
    DecimalComma();
    ~DecimalComma();
    DecimalComma(const DecimalComma&) = delete;
    DecimalComma& operator=(const DecimalComma&) = delete;

  private:
    Text decimal_;
    Text thousand_;
};

} // namespace Quorvane
