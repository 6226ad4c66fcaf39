// SPDX-License-Identifier: MIT
// IQuickActivate: a host's first dozen calls in one.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class QuickActivation : public IQuickActivate, protected ControlMixin {
  public:
    using Answers = InterfaceList<IQuickActivate>;

    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept override;
    STDMETHODIMP SetContentExtent(LPSIZEL size) noexcept override;
    STDMETHODIMP GetContentExtent(LPSIZEL size) noexcept override;

  protected:
    /// The default source of events.
    virtual const IID& EventsId() const noexcept = 0;

  private:
    DWORD Connect(const IID& source, IUnknown* sink);
};

} // namespace Quorvane::Com
