// SPDX-License-Identifier: MIT
// The one place where exceptions stop: they become an HRESULT with error information.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <concepts>
#include <exception>
#include <type_traits>

#include "com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane::Com {

/// A failed call of the platform or of a host's object. It reaches our caller as the same HRESULT,
/// with the callee's own error information where it gave any.
class HresultError : public std::exception {
  public:
    explicit HresultError(HRESULT code, Text description = {}) noexcept
        : code_(code), description_(std::move(description)) {}
    HresultError(HRESULT code, ComPtr<IErrorInfo> info) noexcept
        : code_(code), info_(std::move(info)) {}

    const char* what() const noexcept override { return "A COM call failed"; }
    HRESULT Code() const noexcept { return code_; }
    const Text& Description() const noexcept { return description_; }
    const ComPtr<IErrorInfo>& Info() const noexcept { return info_; }

  private:
    HRESULT code_;
    Text description_;
    ComPtr<IErrorInfo> info_;
};

/// Throws HresultError for a failure code; success codes pass.
void Check(HRESULT result);

/// The same for a method of an object, called through `callee`. The object's error information
/// travels on if the object says that it supports any for this interface; error information that
/// some earlier call left behind does not.
void Check(HRESULT result, IUnknown* callee, REFIID iid);

template <std::derived_from<IUnknown> I>
void Check(HRESULT result, I* callee) {
    Check(result, callee, __uuidof(I));
}

/// Throws HresultError for a Win32 error code other than ERROR_SUCCESS.
void CheckWin32(LSTATUS result);

/// Throws HresultError(E_POINTER) for a null out parameter.
template <class T>
T& Out(T* parameter) {
    if (!parameter) {
        throw HresultError(E_POINTER);
    }
    return *parameter;
}

/// The same for what a caller must bring along, such as a bag to load from.
template <class T>
T& In(T* parameter) {
    return Out(parameter);
}

/// Called inside a catch block: the HRESULT of the current exception, whose source and
/// description become the thread's error information. `iid` names the interface that failed.
///   FisError       its number
///   HresultError   its code
///   bad_alloc      E_OUTOFMEMORY
///   anything else  E_UNEXPECTED
HRESULT CurrentExceptionToHresult(REFIID iid) noexcept;

/// Runs the body of a COM method. The body returns nothing, for S_OK, or an HRESULT; an exception
/// becomes the method's HRESULT and error information. `I` is the interface of the method.
///   STDMETHODIMP FISControl::Fire() noexcept {
///       return Com::Guard<_FISControl>([&] { ... });
///   }
template <class I = IUnknown, class F>
HRESULT Guard(F&& body) noexcept {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<F&>>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (...) {
        return CurrentExceptionToHresult(__uuidof(I));
    }
}

} // namespace Quorvane::Com
