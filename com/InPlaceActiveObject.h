// SPDX-License-Identifier: MIT
// IOleInPlaceActiveObject: what a host's frame asks of the object that has the user.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class InPlaceActiveObject : public IOleInPlaceActiveObject, protected ControlMixin {
  public:
    using Answers = InterfaceList<IOleInPlaceActiveObject>;

    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        return Guard<IOleInPlaceActiveObject>([&] {
            Out(window) = Core().Window();
            return *window ? S_OK : E_FAIL;
        });
    }

    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override {
        return Guard<IOleInPlaceActiveObject>(
            [&] { return Core().InPlace().TranslateAccelerator(message); });
    }

    // A control has no tools that came and went with its frame, or a border to negotiate.
    STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override {
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }
};

} // namespace Quorvane::Com
