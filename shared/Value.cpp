// SPDX-License-Identifier: MIT
// Conversions and comparison of values.
#include "shared/Value.h"

#include "shared/Markers.h"
#include "shared/NumberText.h"

namespace Quorvane {
namespace {

using Shared = std::shared_ptr<const HostValue>;

/// A number or integer; absent for values whose text is not that of a number.
std::optional<double> PlainNumber(const Value& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    const auto* const host = std::get_if<Shared>(&value);
    return host ? (*host)->Integer() : std::nullopt;
}

Text TextForm(const Value& value, NumberForm form) {
    if (const auto* number = std::get_if<double>(&value)) {
        return form == NumberForm::User ? UserNumberText(*number) : NumberText(*number);
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return *text;
    }
    if (const auto* host = std::get_if<Shared>(&value)) {
        return (*host)->TextForm(form);
    }
    return {};
}

} // namespace

bool IsEmpty(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

double ToNumber(const Value& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return ParseUserNumber(*text);
    }
    if (const auto* host = std::get_if<Shared>(&value)) {
        return (*host)->Number();
    }
    return 0;
}

Text UserText(const Value& value) {
    return TextForm(value, NumberForm::User);
}

Text FixedText(const Value& value) {
    return TextForm(value, NumberForm::Fixed);
}

bool NeighboursHaveSameText(double left, double right) {
    return NumberCharacters(left).View() == NumberCharacters(right).View();
}

bool SameTextForm(const std::optional<double>& cached, const Value& value) {
    if (const std::optional<double> number = PlainNumber(value)) {
        return cached && SameNumberText(*cached, *number);
    }
    if (IsEmpty(value)) {
        return false;
    }
    const auto same = [&cached](TextView form) {
        return form == (cached ? UserNumberText(*cached) : Text(EmptyMarker));
    };
    const auto* const text = std::get_if<Text>(&value);
    return text ? same(*text) : same(UserText(value));
}

} // namespace Quorvane
