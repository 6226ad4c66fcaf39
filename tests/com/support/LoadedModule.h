// SPDX-License-Identifier: MIT
// The built control's module, freshly loaded.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace Quorvane {

/// Loads QuorvaneAxEditor.ocx and unloads it again. As nothing else in the test program loads the
/// module, each object of this class begins with a module that has no process-wide state. Every
/// object of the module must be released before it goes.
class LoadedModule {
  public:
    /// Fails the test where the module cannot be loaded, or is in the process already.
    LoadedModule();
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    HMODULE Handle() const noexcept { return module_; }

    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** result) const noexcept;
    HRESULT CanUnloadNow() const noexcept;

    /// Calls an export without arguments, such as DllRegisterServer.
    HRESULT Call(const char* name) const noexcept;

  private:
    template <class Function>
    Function Export(const char* name) const noexcept {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

} // namespace Quorvane
