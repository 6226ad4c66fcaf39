// SPDX-License-Identifier: MIT
// IDataObject: pictures of a control for documents and clipboards.
#pragma once

#include <windows.h>

#include <objidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

class DataObject : public IDataObject, protected ControlMixin {
  public:
    using Answers = InterfaceList<IDataObject>;

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* result) noexcept override;
    STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) noexcept override;
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                         DWORD* cookie) noexcept override;
    STDMETHODIMP DUnadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** sinks) noexcept override;
};

} // namespace Quorvane::Com
