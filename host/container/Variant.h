// SPDX-License-Identifier: MIT
// Variant: owners of the automation types BSTR, VARIANT and EXCEPINFO.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace Quorvane::Host {

/// A new BSTR that the caller frees. Throws std::bad_alloc.
inline BSTR NewBstr(std::wstring_view text) {
    const BSTR bstr = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!bstr) {
        throw std::bad_alloc();
    }
    return bstr;
}

/// The characters of `bstr`; a null one is the empty text.
inline std::wstring_view ViewBstr(BSTR bstr) {
    return {bstr ? bstr : L"", SysStringLen(bstr)};
}

/// Owns a BSTR that a call hands out.
class Bstr {
  public:
    Bstr() = default;
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(bstr_); }

    /// The place for a call to store a new BSTR; the old one is freed.
    BSTR* Receive() {
        SysFreeString(std::exchange(bstr_, nullptr));
        return &bstr_;
    }

    std::wstring_view View() const { return ViewBstr(bstr_); }
    std::wstring Text() const { return std::wstring(View()); }

  private:
    BSTR bstr_ = nullptr;
};

/// A VARIANT that owns what it holds.
class Variant : public VARIANT {
  public:
    Variant() : VARIANT{} {}
    explicit Variant(bool value) : Variant() {
        vt = VT_BOOL;
        boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(LONG value) : Variant() {
        vt = VT_I4;
        lVal = value;
    }
    explicit Variant(double value) : Variant() {
        vt = VT_R8;
        dblVal = value;
    }
    explicit Variant(std::wstring_view text) : Variant() {
        bstrVal = NewBstr(text);
        vt = VT_BSTR;
    }
    explicit Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    explicit Variant(IDispatch* object) : Variant() {
        vt = VT_DISPATCH;
        pdispVal = object;
        if (object) {
            object->AddRef();
        }
    }
    Variant(const Variant& other) : Variant() { Copy(other); }
    Variant(Variant&& other) noexcept : VARIANT(other) { other.vt = VT_EMPTY; }
    Variant& operator=(Variant other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Variant() { VariantClear(this); }

    /// Takes a copy of `other`, through a reference where it is one. The platform's declaration
    /// lacks the const.
    HRESULT Copy(const VARIANT& other) {
        return VariantCopyInd(this, const_cast<VARIANT*>(&other));
    }

    /// Converts the value in place by the rules of `locale`; Booleans become "True" and "False".
    /// After a failure it is as it was.
    HRESULT ChangeType(VARTYPE type, LCID locale) {
        return VariantChangeTypeEx(this, this, locale, VARIANT_ALPHABOOL, type);
    }

    /// Hands the value to the uninitialised `target`; this one is Empty afterwards.
    void MoveTo(VARIANT* target) {
        *target = *this;
        vt = VT_EMPTY;
    }
};

/// An EXCEPINFO that owns its strings.
class ExceptionInfo : public EXCEPINFO {
  public:
    ExceptionInfo() : EXCEPINFO{} {}
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }

    /// The error's number. A 16-bit code is given in its automation form, 0x800Axxxx.
    HRESULT Number() const { return wCode != 0 ? HRESULT(0x800A0000 + wCode) : scode; }
};

} // namespace Quorvane::Host
