// SPDX-License-Identifier: MIT
// ErrorLog: receives what a control could not read while it loads.
#pragma once

#include <oaidl.h>

#include <functional>

#include "com/ComObject.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Hands each logged error on as one line of text: "Caption: description".
class ErrorLog final : public Com::ComObject<IErrorLog> {
  public:
    explicit ErrorLog(std::function<void(const Text&)> report) : report_(std::move(report)) {}

    STDMETHODIMP AddError(LPCOLESTR property, EXCEPINFO* error) noexcept override;

  private:
    ~ErrorLog() override = default;

    std::function<void(const Text&)> report_;
};

} // namespace Quorvane::Host
