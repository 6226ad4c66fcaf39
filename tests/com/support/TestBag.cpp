// SPDX-License-Identifier: MIT
// A property bag that a test fills and inspects.
#include "tests/com/support/TestBag.h"

namespace Quorvane {

STDMETHODIMP TestBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept {
    const Text key = Com::ToText(name);
    Reads.push_back(key);
    Log = log;
    if (OnRead) {
        OnRead(key);
    }
    if (const auto failure = Failures.find(key); failure != Failures.end()) {
        return failure->second;
    }
    const auto found = Values.find(key);
    if (found == Values.end()) {
        return E_INVALIDARG;
    }
    *value = Com::Variant(found->second).Detach();
    return S_OK;
}

STDMETHODIMP TestBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    const Text key = Com::ToText(name);
    if (const auto failure = Failures.find(key); failure != Failures.end()) {
        return failure->second;
    }
    Writes.push_back(key);
    Values.insert_or_assign(key, Com::Variant(*value));
    return S_OK;
}

} // namespace Quorvane
