// SPDX-License-Identifier: MIT
// IPersistStorage: a control in a compound document.
#pragma once

#include <windows.h>

#include <objidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

/// Keeps the stream form of the control in a stream of its storage. It holds no storage between
/// calls, so a host may rename or replace it at any time.
class PersistStorage : public IPersistStorage, protected ControlMixin {
  public:
    using Answers = InterfaceList<IPersistStorage>;

    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP InitNew(IStorage* storage) noexcept override;
    STDMETHODIMP Load(IStorage* storage) noexcept override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;

  private:
    /// Saved to a storage that may become the control's own, or may be a mere copy.
    bool isSavedElsewhere_ = false;
};

} // namespace Quorvane::Com
