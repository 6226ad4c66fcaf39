// SPDX-License-Identifier: MIT
// FormVariant: a form file's values as automation variants and back.
#include "host/container/FormVariant.h"

#include "host/container/FormFont.h"
#include "host/container/Wide.h"

#include <climits>
#include <cmath>

namespace Quorvane::Host {

namespace {

constexpr LCID FileLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

struct NaturalVariant {
    Variant operator()(bool value) const { return Variant(value); }
    Variant operator()(std::int32_t value) const { return Variant(LONG{value}); }
    Variant operator()(HexNumber value) const { return Variant(static_cast<LONG>(value.Bits)); }
    Variant operator()(double value) const { return Variant(value); }
    Variant operator()(const std::u16string& value) const {
        return Variant(std::wstring_view(ToWide(value)));
    }
    Variant operator()(const FormProperties& value) const {
        return Variant(static_cast<IDispatch*>(MakeFont(value).Get()));
    }
};

HRESULT ObjectAsUnknown(Variant& object, Variant& result) {
    if (object.vt != VT_DISPATCH) {
        return DISP_E_TYPEMISMATCH;
    }
    result = std::move(object);
    result.vt = VT_UNKNOWN;
    return S_OK;
}

bool IsColorKey(std::u16string_view key) {
    constexpr std::u16string_view Ending = u"Color";
    return key.size() >= Ending.size() && SameName(key.substr(key.size() - Ending.size()), Ending);
}

HRESULT FromObject(const VARIANT& value, FormValue& result) {
    const auto font = Query<IFont>(value.punkVal);
    if (!font) {
        return DISP_E_TYPEMISMATCH;
    }
    result = DescribeFont(*font.Get());
    return S_OK;
}

HRESULT FromReal(const VARIANT& value, FormValue& result) {
    Variant real;
    HRESULT converted = real.Copy(value);
    if (SUCCEEDED(converted)) {
        converted = real.ChangeType(VT_R8, FileLocale);
    }
    if (FAILED(converted)) {
        return converted;
    }
    if (!std::isfinite(real.dblVal)) {
        return DISP_E_TYPEMISMATCH;
    }
    result = real.dblVal;
    return S_OK;
}

HRESULT FromWhole(const VARIANT& value, std::u16string_view key, FormValue& result) {
    Variant whole;
    if (FAILED(whole.Copy(value)) || FAILED(whole.ChangeType(VT_I4, FileLocale))) {
        return FromReal(value, result);
    }
    if (IsColorKey(key)) {
        result = HexNumber{static_cast<std::uint32_t>(whole.lVal)};
    } else {
        result = std::int32_t{whole.lVal};
    }
    return S_OK;
}

HRESULT FromUnsigned(ULONG value, std::u16string_view key, FormValue& result) {
    if (IsColorKey(key)) {
        result = HexNumber{value};
    } else if (value <= LONG_MAX) {
        result = static_cast<std::int32_t>(value);
    } else {
        result = static_cast<double>(value);
    }
    return S_OK;
}

} // namespace

HRESULT ToVariant(const FormValue& value, VARTYPE wanted, Variant& result) {
    Variant natural = std::visit(NaturalVariant(), value);
    // Only the bits of a colour count, and VT_UI4 is how some controls ask for one.
    if (std::holds_alternative<HexNumber>(value) && (wanted == VT_UI4 || wanted == VT_UINT)) {
        natural.vt = wanted;
    }
    if (wanted == VT_EMPTY || wanted == natural.vt) {
        result = std::move(natural);
        return S_OK;
    }
    if (wanted == VT_UNKNOWN) {
        return ObjectAsUnknown(natural, result);
    }
    const HRESULT converted = natural.ChangeType(wanted, FileLocale);
    if (SUCCEEDED(converted)) {
        result = std::move(natural);
    }
    return converted;
}

HRESULT FromVariant(const VARIANT& value, std::u16string_view key, FormValue& result) {
    switch (value.vt) {
    case VT_BOOL:
        result = value.boolVal != VARIANT_FALSE;
        return S_OK;
    case VT_BSTR:
        result = FromWide(ViewBstr(value.bstrVal));
        return S_OK;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return FromObject(value, result);
    case VT_UI4:
    case VT_UINT:
        return FromUnsigned(value.ulVal, key, result);
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
    case VT_I8:
    case VT_UI8:
        return FromWhole(value, key, result);
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
        return FromReal(value, result);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

} // namespace Quorvane::Host
