// SPDX-License-Identifier: MIT
// ErrorLog: receives what a control could not read while it loads.
#pragma once

#include "host/container/ComObject.h"

#include <functional>
#include <string>

#include <oaidl.h>

namespace Quorvane::Host {

/// Hands each logged error on as one line of text: "Caption: description".
class ErrorLog final : public ComObject<IErrorLog> {
  public:
    explicit ErrorLog(std::function<void(const std::wstring&)> report)
        : report_(std::move(report)) {}

    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR property, EXCEPINFO* error) noexcept override;

  private:
    ~ErrorLog() override = default;

    std::function<void(const std::wstring&)> report_;
};

} // namespace Quorvane::Host
