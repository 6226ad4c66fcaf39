// SPDX-License-Identifier: MIT
// Objects of a host that are called by IDispatch::Invoke and by nothing else of it.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>

#include "com/ComObject.h"

namespace Quorvane {

/// An object of IDispatch, or of an interface derived from it, that describes nothing. A derived
/// class has Invoke.
template <class I = IDispatch>
class InvokeOnly : public Com::ComObject<I> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return E_NOTIMPL;
    }
};

/// Counts its calls and does nothing else; it takes nothing from the heap, either.
template <class I = IDispatch>
class CountingSink : public InvokeOnly<I> {
  public:
    std::size_t Count = 0;

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        ++Count;
        return S_OK;
    }
};

} // namespace Quorvane
