// SPDX-License-Identifier: MIT
// Making instances for hosts, and answering whether the module may go.
#include "com/ClassFactory.h"

#include <algorithm>

namespace Quorvane::Com {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result) noexcept {
    return Guard<IClassFactory>([&] {
        Out(result) = nullptr;
        // An outer object must hold the inner IUnknown; any other interface would delegate to it.
        if (outer && iid != __uuidof(IUnknown)) {
            throw HresultError(CLASS_E_NOAGGREGATION);
        }
        entry_.Create(outer, iid, result);
    });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
    LockModule(lock != FALSE);
    return S_OK;
}

HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** result) noexcept {
    return Guard<IClassFactory>([&] {
        Out(result) = nullptr;
        const auto classes = DescribeModule().Classes;
        const auto entry = std::ranges::find_if(
            classes, [&](const ClassEntry& candidate) { return *candidate.Clsid == clsid; });
        if (entry == classes.end()) {
            throw HresultError(CLASS_E_CLASSNOTAVAILABLE);
        }
        Check(MakeObject<ClassFactory>(*entry)->QueryInterface(iid, result));
    });
}

HRESULT CanUnloadNow() noexcept {
    const auto holdsState = DescribeModule().HoldsState;
    const bool idle = ModuleLockCount() == 0 && !(holdsState && holdsState());
    return idle ? S_OK : S_FALSE;
}

} // namespace Quorvane::Com
