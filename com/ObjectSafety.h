// SPDX-License-Identifier: MIT
// IObjectSafety: what a host that trusts nobody may do with a control.
#pragma once

#include <windows.h>

#include <objsafe.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

// The compiler's header declares the interface without its identifier.
__CRT_UUID_DECL(IObjectSafety, 0xcb5bdc81, 0x93c1, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0,
                0x64)

namespace Quorvane::Com {

/// A control that may be given untrusted data, as it reads any bytes safely, but that is not safe
/// for untrusted callers.
class ObjectSafety : public IObjectSafety, protected ControlMixin {
  public:
    using Answers = InterfaceList<IObjectSafety>;

    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported,
                                           DWORD* enabled) noexcept override {
        return Guard<IObjectSafety>([&] {
            Out(supported) = 0;
            Out(enabled) = 0;
            RequireInterface(iid);
            *supported = Safe;
            *enabled = Safe;
        });
    }

    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask,
                                           DWORD enabled) noexcept override {
        return Guard<IObjectSafety>([&] {
            RequireInterface(iid);
            // Data is read safely whether or not the host asks for it.
            return (mask & enabled & ~Safe) == 0 ? S_OK : E_FAIL;
        });
    }

  private:
    static constexpr DWORD Safe = INTERFACESAFE_FOR_UNTRUSTED_DATA;

    void RequireInterface(REFIID iid) {
        ComPtr<IUnknown> found;
        Check(Core().Unknown()->QueryInterface(iid, found.PutVoid()));
    }
};

} // namespace Quorvane::Com
