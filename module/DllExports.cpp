// SPDX-License-Identifier: MIT
// The functions that the module exports. A module lists this file among its own sources: from a
// library the linker would not take it.
#include <windows.h>

#include <olectl.h>

#include "com/ClassFactory.h"
#include "com/Registration.h"

using namespace Quorvane;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** result) {
    return Com::GetClassObject(clsid, iid, result);
}

STDAPI DllCanUnloadNow() {
    return Com::CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return Com::InstallModule(true, nullptr);
}

STDAPI DllUnregisterServer() {
    return Com::InstallModule(false, nullptr);
}

STDAPI DllInstall(BOOL install, PCWSTR command) {
    return Com::InstallModule(install != FALSE, command);
}

/// Does nothing, on purpose: objects of a host must not be called while modules are unloaded, so
/// nothing is released here. Thread notifications stay on, which the static runtime needs.
BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) {
    return TRUE;
}
