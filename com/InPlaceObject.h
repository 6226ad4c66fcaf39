// SPDX-License-Identifier: MIT
// IOleInPlaceObject: the host's hand on an in-place active control.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class InPlaceObject : public IOleInPlaceObject, protected ControlMixin {
  public:
    using Answers = InterfaceList<IOleInPlaceObject, IOleWindow>;

    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        return Guard<IOleInPlaceObject>([&] {
            Out(window) = Core().Window();
            return *window ? S_OK : E_FAIL;
        });
    }

    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP InPlaceDeactivate() noexcept override {
        Core().InPlace().InPlaceDeactivate();
        return S_OK;
    }

    STDMETHODIMP UIDeactivate() noexcept override {
        Core().InPlace().UIDeactivate();
        return S_OK;
    }

    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override {
        return Guard<IOleInPlaceObject>([&] {
            const auto alive = Core().SelfReference();
            Core().InPlace().SetRects(Out(position), clip);
        });
    }

    STDMETHODIMP ReactivateAndUndo() noexcept override { return INPLACE_E_NOTUNDOABLE; }
};

} // namespace Quorvane::Com
