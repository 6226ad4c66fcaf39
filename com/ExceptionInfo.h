// SPDX-License-Identifier: MIT
// The owner of what a late-bound call tells of its failure.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <utility>

#include "com/Scoped.h"

namespace Quorvane::Com {

/// Exception information whose texts are freed unless they are moved on.
class ExceptionInfo {
  public:
    ExceptionInfo() noexcept = default;

    /// What an object of our own tells. Throws std::bad_alloc.
    ExceptionInfo(HRESULT number, TextView source, TextView description) {
        Bstr ownSource(source);
        info_.bstrDescription = NewBstr(description);
        info_.bstrSource = ownSource.Detach();
        info_.scode = number;
    }
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        ::SysFreeString(info_.bstrSource);
        ::SysFreeString(info_.bstrDescription);
        ::SysFreeString(info_.bstrHelpFile);
    }

    EXCEPINFO* Get() noexcept { return &info_; }

    /// Lets the object tell what it has put off telling; comes before what is read below.
    void FillIn() noexcept {
        if (info_.pfnDeferredFillIn) {
            std::exchange(info_.pfnDeferredFillIn, nullptr)(&info_);
        }
    }

    /// The error's number. An object fills in a code of either width, and must not be taken to have
    /// succeeded.
    HRESULT Number() const noexcept {
        if (FAILED(info_.scode)) {
            return info_.scode;
        }
        return info_.wCode != 0 ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info_.wCode)
                                : DISP_E_EXCEPTION;
    }

    TextView Source() const noexcept { return View(info_.bstrSource); }
    TextView Description() const noexcept { return View(info_.bstrDescription); }

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
