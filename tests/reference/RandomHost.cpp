// SPDX-License-Identifier: MIT
// Values and dictionaries of a host's own, made up at random.
#include "tests/reference/RandomHost.h"

#include <cmath>
#include <utility>

#include "shared/Markers.h"
#include "shared/NumberText.h"

namespace Quorvane::Reference {
namespace {

void Call(const HostCode& code) {
    if (code) {
        code();
    }
}

class OddValue final : public HostValue {
  public:
    enum Kind : std::uint8_t { Whole, Dated, Unreadable, Uncountable, TooLarge, Marker, KindCount };

    OddValue(Kind kind, double number, HostCode code)
        : kind_(kind), number_(number), code_(std::move(code)) {}

    Text TextForm(NumberForm) const override {
        Call(code_);
        switch (kind_) {
        case Unreadable:
            throw FisError(RuntimeError::TypeMismatch);
        case Dated:
            return u"day " + NumberText(number_);
        case Marker:
            return Text(EmptyMarker);
        default:
            return NumberText(number_);
        }
    }

    double Number() const override {
        Call(code_);
        switch (kind_) {
        case Uncountable:
            throw FisError(RuntimeError::TypeMismatch);
        case TooLarge:
            throw FisError(RuntimeError::Overflow);
        default:
            return number_;
        }
    }

    std::optional<double> Integer() const override {
        return kind_ == Whole ? std::optional(number_) : std::nullopt;
    }

  private:
    Kind kind_;
    double number_;
    HostCode code_;
};

} // namespace

HostDictionary::HostDictionary(Choices& choices, HostCode code)
    : items_(choices.Percent(70) ? KeyComparison::IgnoreCase : KeyComparison::Exact),
      isBroken_(choices.Percent(5)), writes_(static_cast<Writes>(choices.Below(3))),
      code_(std::move(code)) {}

Value HostDictionary::Get(TextView key) {
    Call(code_);
    if (isBroken_) {
        throw FisError(RuntimeError::TypeMismatch);
    }
    const Value* const found = items_.Find(key);
    return found ? *found : Value();
}

void HostDictionary::Put(TextView key, Value value) {
    Call(code_);
    switch (writes_) {
    case Writes::Taken:
        items_.Put(Text(key), std::move(value));
        break;
    case Writes::Ignored:
        break;
    case Writes::Refused:
        throw FisError(RuntimeError::InvalidCall);
    }
}

Value MakeHostValue(Choices& choices, double number, const HostCode& code) {
    const auto kind = static_cast<OddValue::Kind>(choices.Below(OddValue::KindCount));
    const double whole = std::isfinite(number) ? std::trunc(number) : 0;
    return std::make_shared<const OddValue>(kind, kind == OddValue::Whole ? whole : number, code);
}

} // namespace Quorvane::Reference
