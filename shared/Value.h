// SPDX-License-Identifier: MIT
// One item of a value dictionary: a crisp input or output as a host or the engine has put it there.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

#include "shared/Text.h"

namespace Quorvane {

/// Which decimal separator the numbers in a text have: the user's, or "." whatever the locale.
enum class NumberForm { User, Fixed };

/// A value of a type that only the host's platform knows: an integer, a date, an object. It keeps
/// the host's value whole, so that the host gets back what it gave.
class HostValue {
  public:
    HostValue() = default;
    HostValue(const HostValue&) = delete;
    HostValue& operator=(const HostValue&) = delete;
    virtual ~HostValue() = default;

    /// The platform's text form. Raises TypeMismatch for values that have none.
    virtual Text TextForm(NumberForm form) const = 0;

    /// The platform's conversion to Double. Raises TypeMismatch or Overflow.
    virtual double Number() const = 0;

    /// The value of a plain integer, whose text form is that of the equal Double; absent for any
    /// other value.
    virtual std::optional<double> Integer() const { return std::nullopt; }
};

/// Empty (never assigned), a number, a text, or a value of the host's own.
using Value = std::variant<std::monostate, double, Text, std::shared_ptr<const HostValue>>;

bool IsEmpty(const Value& value);

/// The value converted to Double; texts are read in the user's locale and Empty is 0.
/// Raises TypeMismatch or Overflow.
double ToNumber(const Value& value);

/// The text form as the user reads it. Empty is the empty text. May raise TypeMismatch.
Text UserText(const Value& value);

/// The text form with "." in numbers, whatever the locale. Empty is the empty text. May raise
/// TypeMismatch.
Text FixedText(const Value& value);

/// Whether two different numbers that are next to each other have the same 15-digit text.
bool NeighboursHaveSameText(double left, double right);

/// Whether two numbers have the same 15-digit text. Formats only numbers that are next to each
/// other: two comparisons decide for all others.
inline bool SameNumberText(double left, double right) {
    if (std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right)) {
        return true;
    }
    // A 15-digit text stands for numbers at most 1E-14 apart, relative to their size.
    constexpr double Reach = 2e-14;
    return !(std::abs(left - right) > Reach * std::abs(left) + Reach * std::abs(right)) &&
           NeighboursHaveSameText(left, right);
}

/// Whether the value's text form equals that of a cached number or, where nothing is cached, the
/// marker "[EMPTY]". May raise TypeMismatch.
bool SameTextForm(const std::optional<double>& cached, const Value& value);

} // namespace Quorvane
