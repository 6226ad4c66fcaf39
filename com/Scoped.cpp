// SPDX-License-Identifier: MIT
// The parts of the automation value owners that call the platform's conversions.
#include "com/Scoped.h"

#include <cstdint>

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {
namespace {

/// The platform follows a reference to nowhere as well.
void RefuseNullReference(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0 && !value.byref) {
        throw HresultError(E_INVALIDARG);
    }
}

} // namespace

// The platform's declarations lack const for what they only read.

Variant::Variant(const VARIANT& value) : Variant() {
    Check(::VariantCopy(&value_, const_cast<VARIANT*>(&value)));
}

HRESULT FollowDefaults(Variant& value) noexcept {
    constexpr int LongestChain = 16;
    for (int step = 0; HasDefault(value.Type()); ++step) {
        const ComPtr<IDispatch> object(value.Get().pdispVal);
        if (!object || step == LongestChain) {
            return DISP_E_TYPEMISMATCH;
        }
        DISPPARAMS none{};
        const HRESULT result = object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                              DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none,
                                              value.Put(), nullptr, nullptr);
        if (FAILED(result)) {
            return result;
        }
        if ((value.Type() & VT_BYREF) != 0) {
            // No object may refer to a variable in its answer: it could be the object once more.
            return DISP_E_TYPEMISMATCH;
        }
    }
    return S_OK;
}

Variant ChangeType(const VARIANT& value, VARTYPE type) {
    return ChangeType(value, type, LOCALE_USER_DEFAULT, 0);
}

Variant ChangeType(const VARIANT& value, VARTYPE type, LCID locale, USHORT flags) {
    // The platform does not follow a by-reference variant in every conversion; follow it here.
    const VARIANT& given = Dereference(value);
    RefuseNullReference(given);
    Variant followed;
    auto* source = const_cast<VARIANT*>(&given);
    if (HasDefault(static_cast<VARTYPE>(given.vt & ~VT_BYREF))) {
        followed = WithoutReference(given);
        if (FAILED(FollowDefaults(followed))) {
            throw HresultError(DISP_E_TYPEMISMATCH);
        }
        source = &followed.Get();
    }
    Variant result;
    Check(::VariantChangeTypeEx(result.Put(), source, locale, flags, type));
    return result;
}

OLE_COLOR ToColor(const VARIANT& value) {
    const double number = ChangeType(value, VT_R8).Get().dblVal;
    if (!(number >= INT32_MIN && number <= UINT32_MAX)) {
        throw HresultError(DISP_E_OVERFLOW);
    }
    return static_cast<OLE_COLOR>(static_cast<std::int64_t>(number));
}

Variant WithoutReference(const VARIANT& value) {
    RefuseNullReference(value);
    // The header of the compiler forgets that the source is not changed.
    auto& source = const_cast<VARIANT&>(value);
    Variant copy;
    Check(::VariantCopyInd(copy.Put(), &source));
    return copy;
}

const VARIANT& Dereference(const VARIANT& value) noexcept {
    // Automation allows one such step; a host's longer chain is followed, an endless one is not.
    constexpr int MostSteps = 8;
    const VARIANT* result = &value;
    for (int step = 0; step < MostSteps; ++step) {
        if (result->vt != (VT_BYREF | VT_VARIANT) || !result->pvarVal) {
            break;
        }
        result = result->pvarVal;
    }
    return *result;
}

} // namespace Quorvane::Com
