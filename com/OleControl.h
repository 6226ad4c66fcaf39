// SPDX-License-Identifier: MIT
// IOleControl: keys, ambient properties and the freezing of events.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

/// A control without access keys of its own.
class OleControl : public IOleControl, protected ControlMixin {
  public:
    using Answers = InterfaceList<IOleControl>;

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override {
        return Guard<IOleControl>([&] {
            // The caller has set the size, or has not; there is nothing beyond the common part.
            Out(info).hAccel = nullptr;
            info->cAccel = 0;
            info->dwFlags = 0;
        });
    }

    STDMETHODIMP OnMnemonic(LPMSG) noexcept override { return S_OK; }

    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override {
        return Guard<IOleControl>([&] {
            const auto alive = Core().SelfReference();
            if (property == DISPID_AMBIENT_UIDEAD || property == DISPID_UNKNOWN) {
                Core().InPlace().FollowUIDead();
            }
            Core().AmbientChanged(property);
        });
    }

    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override {
        Core().Freeze(freeze != FALSE);
        return S_OK;
    }
};

} // namespace Quorvane::Com
