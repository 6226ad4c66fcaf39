// SPDX-License-Identifier: MIT
// From exceptions to HRESULTs with error information.
#include "com/ErrorBoundary.h"

#include <oleauto.h>

#include <new>

#include "com/Scoped.h"
#include "shared/FisError.h"

namespace Quorvane::Com {
namespace {

/// Leaves the thread without error information, so that a host does not read an older text.
void ClearErrorInfo() noexcept {
    ::SetErrorInfo(0, nullptr);
}

void ReportError(REFIID iid, const Text& source, const Text& description) {
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(::CreateErrorInfo(creator.Put()))) {
        return;
    }
    creator->SetGUID(iid);
    creator->SetSource(const_cast<wchar_t*>(Wide(source)));
    creator->SetDescription(const_cast<wchar_t*>(Wide(description)));
    if (const auto info = creator.As<IErrorInfo>()) {
        ::SetErrorInfo(0, info.Get());
    }
}

/// Reports only where there is something to say: a host words a bare number better itself.
void Report(REFIID iid, const Text& source, const Text& description) {
    if (source.empty() && description.empty()) {
        ClearErrorInfo();
    } else {
        ReportError(iid, source, description);
    }
}

bool SupportsErrorInfo(IUnknown* callee, REFIID iid) noexcept {
    const auto support = Query<ISupportErrorInfo>(callee);
    return support && support->InterfaceSupportsErrorInfo(iid) == S_OK;
}

HRESULT Rethrow(REFIID iid) {
    try {
        throw;
    } catch (const FisError& error) {
        Report(iid, error.Source, error.Description);
        // A number that a host would take for success must not hide the error.
        const auto number = static_cast<HRESULT>(error.Number);
        return FAILED(number) ? number : E_FAIL;
    } catch (const HresultError& error) {
        if (error.Info()) {
            ::SetErrorInfo(0, error.Info().Get());
        } else {
            Report(iid, {}, error.Description());
        }
        return error.Code();
    } catch (const std::bad_alloc&) {
        ClearErrorInfo();
        return E_OUTOFMEMORY;
    } catch (...) {
        ClearErrorInfo();
        return E_UNEXPECTED;
    }
}

} // namespace

void Check(HRESULT result) {
    if (FAILED(result)) {
        throw HresultError(result);
    }
}

void Check(HRESULT result, IUnknown* callee, REFIID iid) {
    if (SUCCEEDED(result)) {
        return;
    }
    // Taken before anything else is called, which could replace it.
    ComPtr<IErrorInfo> info;
    if (::GetErrorInfo(0, info.Put()) != S_OK || !SupportsErrorInfo(callee, iid)) {
        throw HresultError(result);
    }
    throw HresultError(result, std::move(info));
}

void CheckWin32(LSTATUS result) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(result)));
}

HRESULT CurrentExceptionToHresult(REFIID iid) noexcept {
    try {
        return Rethrow(iid);
    } catch (...) {
        // Describing the error ran out of memory itself.
        ClearErrorInfo();
        return E_OUTOFMEMORY;
    }
}

} // namespace Quorvane::Com
