// SPDX-License-Identifier: MIT
// Values of the core as VARIANTs of a host, and back.
#include "control/dictionaries/VariantValue.h"

#include <oleauto.h>

#include "com/ErrorBoundary.h"
#include "shared/DefaultArithmetic.h"
#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane {
namespace {

void CheckConversion(HRESULT result) {
    if (FAILED(result)) {
        throw FisError(result == DISP_E_OVERFLOW ? RuntimeError::Overflow
                                                 : RuntimeError::TypeMismatch);
    }
}

/// The value behind default properties: never an object. Raises TypeMismatch where there is none.
Com::Variant Resolve(const VARIANT& variant) {
    Com::Variant value(variant);
    if (Com::HasDefault(value.Type())) {
        const DefaultArithmetic::Pause pause;
        CheckConversion(Com::FollowDefaults(value));
    }
    return value;
}

/// A value of a type that the core does not have.
class VariantValue final : public HostValue {
  public:
    explicit VariantValue(const VARIANT& variant) : variant_(variant) {}
    ~VariantValue() override {
        if (Com::HasDefault(variant_.Type())) {
            const DefaultArithmetic::Pause pause;
            variant_ = Com::Variant();
        }
    }
    VariantValue(const VariantValue&) = delete;
    VariantValue& operator=(const VariantValue&) = delete;

    Text TextForm(NumberForm form) const override {
        const bool isForUser = form == NumberForm::User;
        Com::Variant value = Resolve(variant_.Get());
        if (value.Type() == VT_R8) {
            const double number = value.Get().dblVal;
            return isForUser ? UserNumberText(number) : NumberText(number);
        }
        Com::Variant text;
        const LCID locale = isForUser ? LOCALE_USER_DEFAULT : LOCALE_INVARIANT;
        CheckConversion(
            ::VariantChangeTypeEx(text.Put(), &value.Get(), locale, VARIANT_ALPHABOOL, VT_BSTR));
        return Text(Com::View(text.Get().bstrVal));
    }

    double Number() const override {
        Com::Variant value = Resolve(variant_.Get());
        if (value.Type() == VT_BSTR) {
            return ParseUserNumber(Com::View(value.Get().bstrVal));
        }
        Com::Variant number;
        CheckConversion(
            ::VariantChangeTypeEx(number.Put(), &value.Get(), LOCALE_USER_DEFAULT, 0, VT_R8));
        return number.Get().dblVal;
    }

    std::optional<double> Integer() const override {
        const VARIANT& value = variant_.Get();
        switch (value.vt) {
        case VT_I1:
            return value.cVal;
        case VT_UI1:
            return value.bVal;
        case VT_I2:
            return value.iVal;
        case VT_UI2:
            return value.uiVal;
        case VT_I4:
        case VT_INT:
            return value.lVal;
        case VT_UI4:
        case VT_UINT:
            return value.ulVal;
        default:
            return std::nullopt;
        }
    }

    const VARIANT& Get() const { return variant_.Get(); }

  private:
    Com::Variant variant_;
};

} // namespace

Value FromVariant(const VARIANT& variant) {
    switch (variant.vt) {
    case VT_EMPTY:
        return {};
    case VT_R8:
        return variant.dblVal;
    case VT_BSTR:
        return Text(Com::View(variant.bstrVal));
    default:
        if ((variant.vt & VT_BYREF) != 0) {
            return FromVariant(Com::WithoutReference(variant).Get());
        }
        return HoldVariant(variant);
    }
}

std::shared_ptr<const HostValue> HoldVariant(const VARIANT& variant) {
    return std::make_shared<const VariantValue>(Com::WithoutReference(variant).Get());
}

Com::Variant ToVariant(const Value& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return Com::Variant(*number);
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return Com::Variant(TextView(*text));
    }
    if (const auto* host = std::get_if<std::shared_ptr<const HostValue>>(&value)) {
        return ToVariant(**host);
    }
    return {};
}

Com::Variant ToVariant(const HostValue& value) {
    // In this module every value of a host is a VariantValue.
    return Com::Variant(dynamic_cast<const VariantValue&>(value).Get());
}

} // namespace Quorvane
