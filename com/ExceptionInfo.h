// SPDX-License-Identifier: MIT
// The owner of what a late-bound call tells of its failure.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <utility>

namespace Quorvane::Com {

/// Exception information whose texts are freed unless they are moved on.
class ExceptionInfo {
  public:
    ExceptionInfo() noexcept = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        ::SysFreeString(info_.bstrSource);
        ::SysFreeString(info_.bstrDescription);
        ::SysFreeString(info_.bstrHelpFile);
    }

    EXCEPINFO* Get() noexcept { return &info_; }

    /// Hands the texts over to a caller's record; nothing happens for a null one.
    void MoveTo(EXCEPINFO* target) noexcept {
        if (target) {
            *target = std::exchange(info_, EXCEPINFO{});
        }
    }

  private:
    EXCEPINFO info_{};
};

} // namespace Quorvane::Com
