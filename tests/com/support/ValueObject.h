// SPDX-License-Identifier: MIT
// An object of a host that has a default property.
#pragma once

#include <windows.h>

#include <functional>

#include "com/Scoped.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane {

/// An automation object whose default property gives a value, or fails.
class ValueObject final : public InvokeOnly<> {
  public:
    explicit ValueObject(Com::Variant value) : Value(std::move(value)) {}

    Com::Variant Value;
    /// What reading the property gives.
    HRESULT Result = S_OK;
    /// Called whenever the property is read.
    std::function<void()> OnRead;

    /// Holds this object, as a dictionary's item does.
    Com::Variant AsVariant() { return Com::Variant(static_cast<IDispatch*>(this)); }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) noexcept override {
        if (member != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (OnRead) {
            OnRead();
        }
        *result = Com::Variant(Value).Detach();
        return Result;
    }
};

} // namespace Quorvane
