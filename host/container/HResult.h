// SPDX-License-Identifier: MIT
// HResult: failed COM calls as exceptions with a readable text.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace Quorvane::Host {

/// A failed COM call. `what()` is UTF-8: what was tried, the description and the number.
struct HResultError : std::runtime_error {
    HResultError(HRESULT result, const std::string& message)
        : std::runtime_error(message), Result(result) {}
    HRESULT Result;
};

/// "0x80004005 (Unspecified error)" as far as the system knows a text for `result`.
std::wstring DescribeResult(HRESULT result);

/// Throws HResultError if `result` is a failure; `action` says what was tried ("load the control").
/// The calling thread's error information, where there is any, gives the description.
void Check(HRESULT result, std::wstring_view action);

/// Throws HResultError with a description of one's own.
[[noreturn]] void Fail(HRESULT result, std::wstring_view action, std::wstring_view description);

/// Runs `body` where no exception may pass and gives its result: S_OK, an HResultError's number,
/// E_OUTOFMEMORY, or E_FAIL for any other exception.
template <typename Body>
HRESULT Guard(Body&& body) noexcept {
    try {
        return body();
    } catch (const HResultError& error) {
        return error.Result;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace Quorvane::Host
