// SPDX-License-Identifier: MIT
// The frame of a property page, which listens to nothing.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComObject.h"

namespace Quorvane {

/// The site that a page needs to be shown; what the page reports is taken and forgotten.
class PageFrame final : public Com::ComObject<IPropertyPageSite> {
  public:
    STDMETHODIMP OnStatusChange(DWORD) noexcept override { return S_OK; }
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override {
        *locale = 1033;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }
};

} // namespace Quorvane
