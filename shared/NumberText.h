// SPDX-License-Identifier: MIT
// Doubles as texts and texts as Doubles, in the fixed form and in the user's form.
#pragma once

#include <array>
#include <cstddef>

#include "shared/Text.h"

namespace Quorvane {

/// The characters of a number's text, in a buffer of its own; the longest is
/// "-1.23456789012345E+308".
class NumberCharacters {
  public:
    /// The shortest text of at most 15 significant digits: 0.1 + 0.2 -> "0.3", 1e-5 -> "1E-05",
    /// 1e15 -> "1E+15", -0.0 -> "0". Not-a-number is "NAN", the infinities "INF" and "-INF".
    explicit NumberCharacters(double value) noexcept;

    std::string_view View() const noexcept { return {characters_.data(), size_}; }

  private:
    std::array<char, 24> characters_;
    std::size_t size_;
};

/// A number in the fixed form, with "." as the decimal separator whatever the user's locale: the
/// form of definition texts and batch files.
Text NumberText(double value);

/// Reads the fixed form: blanks or tabs around; a sign; digits with at most one "."; an exponent
/// after E or D of either case. " -1.5e3 " -> -1500. Everything else, the empty text and "nan"
/// included, raises TypeMismatch; a magnitude beyond the largest Double raises Overflow; one below
/// the smallest is 0.
double ParseNumber(TextView text);

/// A number as the user reads it, with the decimal separator of the user's locale.
Text UserNumberText(double value);

/// Reads what a user or host has typed. Plain decimals with the user's separator are read exactly;
/// other forms are left to the platform. Raises TypeMismatch or Overflow.
double ParseUserNumber(TextView text);

} // namespace Quorvane
