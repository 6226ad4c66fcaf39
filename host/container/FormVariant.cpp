// SPDX-License-Identifier: MIT
// FormVariant: a form file's values as automation variants and back.
#include "host/container/FormVariant.h"

#include <climits>
#include <cmath>
#include <optional>

#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/container/FormFont.h"

namespace Quorvane::Host {
namespace {

constexpr LCID FileLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

struct NaturalVariant {
    Com::Variant operator()(bool value) const { return Com::Variant(value); }
    Com::Variant operator()(std::int32_t value) const { return Com::Variant(LONG{value}); }
    Com::Variant operator()(HexNumber value) const {
        return Com::Variant(static_cast<LONG>(value.Bits));
    }
    Com::Variant operator()(double value) const { return Com::Variant(value); }
    Com::Variant operator()(const Text& value) const { return Com::Variant(TextView(value)); }
    Com::Variant operator()(const FormProperties& value) const {
        return Com::Variant(static_cast<IDispatch*>(MakeFont(value).Get()));
    }
};

/// By the rules of the file, where Booleans are words.
Com::Variant Convert(const VARIANT& value, VARTYPE type) {
    return Com::ChangeType(value, type, FileLocale, VARIANT_ALPHABOOL);
}

[[noreturn]] void RefuseType() {
    throw Com::HresultError(DISP_E_TYPEMISMATCH);
}

bool IsColorKey(TextView key) {
    constexpr TextView Ending = u"Color";
    return key.size() >= Ending.size() && SameName(key.substr(key.size() - Ending.size()), Ending);
}

FormValue FromObject(IUnknown* object) {
    const auto font = Com::Query<IFont>(object);
    if (!font) {
        RefuseType();
    }
    return DescribeFont(*font);
}

double FromReal(const VARIANT& value) {
    const double real = Convert(value, VT_R8).Get().dblVal;
    if (!std::isfinite(real)) {
        RefuseType();
    }
    return real;
}

/// The value as a whole number of 32 bits; nothing where it has more.
std::optional<LONG> WholeNumber(const VARIANT& value) {
    try {
        return Convert(value, VT_I4).Get().lVal;
    } catch (const Com::HresultError&) {
        return std::nullopt;
    }
}

FormValue FromWhole(const VARIANT& value, TextView key) {
    const std::optional<LONG> whole = WholeNumber(value);
    if (!whole) {
        return FromReal(value);
    }
    if (IsColorKey(key)) {
        return HexNumber{static_cast<std::uint32_t>(*whole)};
    }
    return std::int32_t{*whole};
}

FormValue FromUnsigned(ULONG value, TextView key) {
    if (IsColorKey(key)) {
        return HexNumber{value};
    }
    if (value <= LONG_MAX) {
        return static_cast<std::int32_t>(value);
    }
    return static_cast<double>(value);
}

} // namespace

Com::Variant ToVariant(const FormValue& value, VARTYPE wanted) {
    Com::Variant natural = std::visit(NaturalVariant(), value);
    // Only the bits of a colour count, and VT_UI4 is how some controls ask for one.
    if (std::holds_alternative<HexNumber>(value) && (wanted == VT_UI4 || wanted == VT_UINT)) {
        natural.Get().vt = wanted;
    }
    if (wanted == VT_EMPTY || wanted == natural.Type()) {
        return natural;
    }
    if (wanted != VT_UNKNOWN) {
        return Convert(natural.Get(), wanted);
    }
    if (natural.Type() != VT_DISPATCH) {
        RefuseType();
    }
    natural.Get().vt = VT_UNKNOWN;
    return natural;
}

Com::Variant ToVariant(const FormProperty& property, VARTYPE wanted, TextView owner) {
    try {
        return ToVariant(property.Value, wanted);
    } catch (const Com::HresultError& error) {
        Com::Fail(error.Code(), u"read the " + Text(owner) + u"'s " + property.Key,
                  error.Description());
    }
}

FormValue FromVariant(const VARIANT& value, TextView key) {
    switch (value.vt) {
    case VT_BOOL:
        return value.boolVal != VARIANT_FALSE;
    case VT_BSTR:
        return Text(Com::View(value.bstrVal));
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return FromObject(value.punkVal);
    case VT_UI4:
    case VT_UINT:
        return FromUnsigned(value.ulVal, key);
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
    case VT_I8:
    case VT_UI8:
        return FromWhole(value, key);
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
        return FromReal(value);
    default:
        RefuseType();
    }
}

} // namespace Quorvane::Host
