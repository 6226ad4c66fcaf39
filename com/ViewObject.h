// SPDX-License-Identifier: MIT
// IViewObjectEx: a control drawn by its host, on a design surface, a printer or into a metafile.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class ViewObject : public IViewObjectEx, protected ControlMixin {
  public:
    using Answers = InterfaceList<IViewObjectEx, IViewObject2, IViewObject>;

    // IViewObject
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                      HDC target, HDC context, LPCRECTL bounds, LPCRECTL metafileBounds,
                      BOOL(CALLBACK* proceed)(ULONG_PTR), ULONG_PTR argument) noexcept override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                             HDC target, LOGPALETTE** palette) noexcept override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo,
                        DWORD* cookie) noexcept override;
    STDMETHODIMP Unfreeze(DWORD cookie) noexcept override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;

    // IViewObject2
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                           LPSIZEL size) noexcept override;

    // IViewObjectEx
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL rectangle) noexcept override;
    STDMETHODIMP GetViewStatus(DWORD* status) noexcept override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeness,
                               DWORD* result) noexcept override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG closeness,
                              DWORD* result) noexcept override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                  DVEXTENTINFO* info, LPSIZEL size) noexcept override;
};

} // namespace Quorvane::Com
