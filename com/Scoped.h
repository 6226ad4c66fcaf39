// SPDX-License-Identifier: MIT
// Owners of automation texts and values, and the views between BSTR and Text.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>

#include <concepts>
#include <new>
#include <utility>

#include "com/ComPtr.h"
#include "shared/Text.h"
#include "win/WideText.h"

namespace Quorvane::Com {

/// The characters of a wide text. char16_t and the platform's wchar_t are both UTF-16, but
/// different types to the compiler; this folder is built without strict aliasing for this reason.
inline TextView View(const wchar_t* text, std::size_t length) noexcept {
    return {reinterpret_cast<const char16_t*>(text), length};
}

/// The characters of a BSTR, embedded zeros included; a null BSTR is the empty text.
inline TextView View(BSTR text) noexcept {
    return View(text, ::SysStringLen(text));
}

using Win::Wide;

/// The characters up to the terminating zero, copied; null is the empty text.
inline Text ToText(const wchar_t* text) {
    return text ? Text(reinterpret_cast<const char16_t*>(text)) : Text();
}

/// A new BSTR for the caller to free. Throws std::bad_alloc.
inline BSTR NewBstr(TextView text) {
    auto* const result = ::SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                             static_cast<UINT>(text.size()));
    if (!result) {
        throw std::bad_alloc();
    }
    return result;
}

/// An owned BSTR.
class Bstr {
  public:
    Bstr() noexcept = default;
    explicit Bstr(TextView text) : text_(NewBstr(text)) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { ::SysFreeString(text_); }

    BSTR Get() const noexcept { return text_; }
    TextView Characters() const noexcept { return View(text_); }

    /// The place for a function that returns a BSTR; what was held is freed first.
    BSTR* Put() noexcept {
        ::SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

    BSTR Detach() noexcept { return std::exchange(text_, nullptr); }

  private:
    BSTR text_ = nullptr;
};

/// An owned VARIANT. Copies are deep; a copy that fails throws (std::bad_alloc or HresultError).
class Variant {
  public:
    Variant() noexcept = default;
    explicit Variant(const VARIANT& value);
    explicit Variant(TextView text) : Variant() {
        value_.bstrVal = NewBstr(text);
        value_.vt = VT_BSTR;
    }
    explicit Variant(double number) noexcept : Variant() {
        value_.vt = VT_R8;
        value_.dblVal = number;
    }
    explicit Variant(LONG number) noexcept : Variant() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Variant(int number) noexcept : Variant(LONG{number}) {}
    /// Nothing but a bool: a pointer to characters would convert to one.
    explicit Variant(std::same_as<bool> auto flag) noexcept : Variant() {
        value_.vt = VT_BOOL;
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(IDispatch* object) noexcept : Variant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object) {
            object->AddRef();
        }
    }
    Variant(const Variant& other) : Variant(other.value_) {}
    Variant(Variant&& other) noexcept : value_(other.value_) { other.value_.vt = VT_EMPTY; }
    Variant& operator=(const Variant& other) { return *this = Variant(other); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { ::VariantClear(&value_); }

    /// Takes over a VARIANT that the caller owns.
    static Variant Attach(VARIANT& value) noexcept {
        Variant result;
        result.value_ = value;
        value.vt = VT_EMPTY;
        return result;
    }

    const VARIANT& Get() const noexcept { return value_; }
    VARIANT& Get() noexcept { return value_; }
    VARTYPE Type() const noexcept { return value_.vt; }

    /// The place for a function that returns a VARIANT; what was held is cleared first.
    VARIANT* Put() noexcept {
        ::VariantClear(&value_);
        return &value_;
    }

    VARIANT Detach() noexcept {
        VARIANT result = value_;
        value_.vt = VT_EMPTY;
        return result;
    }

  private:
    VARIANT value_{};
};

/// Whether a type is that of an object, which stands for its default property.
constexpr bool HasDefault(VARTYPE type) noexcept {
    return type == VT_DISPATCH;
}

/// Replaces an object by its default property, and that of the object which this may be, until the
/// value is no object. Returns the failure of an object that has none, and DISP_E_TYPEMISMATCH for
/// a chain that does not end, as of an object that is its own default: the platform's conversions
/// would follow it for ever.
HRESULT FollowDefaults(Variant& value) noexcept;

/// The value as another type, by the platform's conversion in the user's locale. Objects give
/// their default property. Throws HresultError, DISP_E_TYPEMISMATCH for one that does not convert.
Variant ChangeType(const VARIANT& value, VARTYPE type);

/// The same in a given locale, where flags of the platform such as VARIANT_ALPHABOOL say how.
Variant ChangeType(const VARIANT& value, VARTYPE type, LCID locale, USHORT flags);

/// A colour as hosts give it: a system colour is above the range of a signed number, and comes as
/// an unsigned or a negative one, or as a text of either. Throws HresultError, DISP_E_OVERFLOW for
/// a number of more than 32 bits.
OLE_COLOR ToColor(const VARIANT& value);

/// A copy of the value in which a by-reference type has become the value that it refers to. Throws
/// HresultError.
Variant WithoutReference(const VARIANT& value);

/// The value that a chain of VT_BYREF | VT_VARIANT ends at; the argument itself for any other.
const VARIANT& Dereference(const VARIANT& value) noexcept;

} // namespace Quorvane::Com
