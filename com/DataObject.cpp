// SPDX-License-Identifier: MIT
// IDataObject: pictures of a control.
#include "com/DataObject.h"

#include <vector>

#include "com/Enumerator.h"
#include "com/Rendering.h"

namespace Quorvane::Com {
namespace {

/// The pictures that there are, the best first.
constexpr FORMATETC Pictures[] = {
    {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF},
    {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT},
    {CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI},
};

/// The picture that answers a request. Throws HresultError where none does.
const FORMATETC& Find(const FORMATETC& wanted) {
    if ((wanted.dwAspect & (DVASPECT_CONTENT | DVASPECT_DOCPRINT)) == 0) {
        throw HresultError(DV_E_DVASPECT);
    }
    for (const FORMATETC& picture : Pictures) {
        if (picture.cfFormat == wanted.cfFormat) {
            if ((picture.tymed & wanted.tymed) == 0) {
                throw HresultError(DV_E_TYMED);
            }
            return picture;
        }
    }
    throw HresultError(DV_E_FORMATETC);
}

} // namespace

STDMETHODIMP DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
    return Guard<IDataObject>([&] {
        Out(medium) = STGMEDIUM{};
        const auto alive = Core().SelfReference();
        *medium = Render(Core(), Find(Out(format)).tymed);
    });
}

STDMETHODIMP DataObject::GetDataHere(FORMATETC*, STGMEDIUM*) noexcept {
    return DATA_E_FORMATETC;
}

STDMETHODIMP DataObject::QueryGetData(FORMATETC* format) noexcept {
    return Guard<IDataObject>([&] { Find(Out(format)); });
}

STDMETHODIMP DataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* result) noexcept {
    return Guard<IDataObject>([&] {
        // All devices get the same picture.
        Out(result) = Out(format);
        result->ptd = nullptr;
        return DATA_S_SAMEFORMATETC;
    });
}

STDMETHODIMP DataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
    return Guard<IDataObject>([&] {
        Out(formats) = nullptr;
        if (direction != DATADIR_GET) {
            return E_NOTIMPL;
        }
        std::vector<FORMATETC> copies(std::begin(Pictures), std::end(Pictures));
        *formats = MakeObject<Enumerator<IEnumFORMATETC, FORMATETC>>(std::move(copies)).Detach();
        return S_OK;
    });
}

STDMETHODIMP DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                 DWORD* cookie) noexcept {
    return Guard<IDataObject>([&] {
        Out(cookie) = 0;
        return Core().Sinks().DataAdvise(this, &Out(format), flags, sink, cookie);
    });
}

STDMETHODIMP DataObject::DUnadvise(DWORD cookie) noexcept {
    return Core().Sinks().DataUnadvise(cookie);
}

STDMETHODIMP DataObject::EnumDAdvise(IEnumSTATDATA** sinks) noexcept {
    return Guard<IDataObject>([&] {
        Out(sinks) = nullptr;
        return Core().Sinks().EnumDataAdvise(sinks);
    });
}

} // namespace Quorvane::Com
