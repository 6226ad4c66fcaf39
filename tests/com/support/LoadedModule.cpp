// SPDX-License-Identifier: MIT
// The built control's module, freshly loaded.
#include "tests/com/support/LoadedModule.h"

#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/com/support/ControlModule.h"

namespace Quorvane {
namespace {

/// Without "..": a module is known by its full path.
Text FullPath() {
    const Text path = ControlModulePath();
    wchar_t full[MAX_PATH]{};
    ::GetFullPathNameW(Com::Wide(path), MAX_PATH, full, nullptr);
    return Com::ToText(full);
}

bool IsInProcess() {
    return ::GetModuleHandleW(Com::Wide(FullPath())) != nullptr;
}

} // namespace

LoadedModule::LoadedModule() {
    EXPECT_FALSE(IsInProcess()) << "the module was not unloaded after an earlier test";
    module_ = ::LoadLibraryW(Com::Wide(FullPath()));
    EXPECT_NE(module_, nullptr) << "error " << ::GetLastError();
}

LoadedModule::~LoadedModule() {
    ::FreeLibrary(module_);
    EXPECT_FALSE(IsInProcess());
}

HRESULT LoadedModule::GetClassObject(REFCLSID clsid, REFIID iid, void** result) const noexcept {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    return Export<Function>("DllGetClassObject")(clsid, iid, result);
}

HRESULT LoadedModule::CanUnloadNow() const noexcept {
    return Call("DllCanUnloadNow");
}

HRESULT LoadedModule::Call(const char* name) const noexcept {
    using Function = HRESULT(STDAPICALLTYPE*)();
    return Export<Function>(name)();
}

} // namespace Quorvane
