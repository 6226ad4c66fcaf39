// SPDX-License-Identifier: MIT
// A property bag that a test fills and inspects.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>
#include <map>
#include <vector>

#include "com/ComObject.h"
#include "com/Scoped.h"

namespace Quorvane {

/// A property bag that answers with its values as they are, whatever type is asked for; converting
/// them is the control's part.
class TestBag final : public Com::ComObject<IPropertyBag> {
  public:
    /// A bag with these values.
    explicit TestBag(std::map<Text, Com::Variant> values = {}) : Values(std::move(values)) {}

    /// Read from, and written to. An absent one is answered with E_INVALIDARG.
    std::map<Text, Com::Variant> Values;
    /// Failures that reading or writing a property gives.
    std::map<Text, HRESULT> Failures;
    /// Called with the name before a property is read.
    std::function<void(const Text&)> OnRead;

    /// What has been read and written, in order.
    std::vector<Text> Reads;
    std::vector<Text> Writes;
    /// The log that came with the last read, not counted.
    IErrorLog* Log = nullptr;

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;
};

} // namespace Quorvane
