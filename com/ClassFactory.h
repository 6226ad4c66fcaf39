// SPDX-License-Identifier: MIT
// The factory of every class in the module's table.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include "com/ClassTable.h"
#include "com/ComObject.h"

namespace Quorvane::Com {

class ClassFactory final : public ComObject<IClassFactory> {
  public:
    explicit ClassFactory(const ClassEntry& entry) noexcept : entry_(entry) {}

    // IClassFactory
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

  private:
    const ClassEntry& entry_;
};

/// The body of DllGetClassObject: CLASS_E_CLASSNOTAVAILABLE for a class that the table lacks.
HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** result) noexcept;

/// The body of DllCanUnloadNow: S_OK once no object and no lock is left and the module holds no
/// state, else S_FALSE.
HRESULT CanUnloadNow() noexcept;

} // namespace Quorvane::Com
