// SPDX-License-Identifier: MIT
// IRunnableObject: a control runs as soon as it is there.
#pragma once

#include <windows.h>

#include <objidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class RunnableObject : public IRunnableObject, protected ControlMixin {
  public:
    using Answers = InterfaceList<IRunnableObject>;

    STDMETHODIMP GetRunningClass(LPCLSID clsid) noexcept override {
        return Guard<IRunnableObject>([&] { Out(clsid) = *Core().Traits().Clsid; });
    }
    STDMETHODIMP Run(LPBINDCTX) noexcept override { return S_OK; }
    STDMETHODIMP_(BOOL) IsRunning() noexcept override { return TRUE; }
    STDMETHODIMP LockRunning(BOOL, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) noexcept override { return S_OK; }
};

} // namespace Quorvane::Com
