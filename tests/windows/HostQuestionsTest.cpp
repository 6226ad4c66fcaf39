// SPDX-License-Identifier: MIT
// The answers to what hosts ask in passing, interface by interface.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include <vector>

#include "com/ErrorBoundary.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/Picture.h"

namespace Quorvane {
namespace {

TEST(HostQuestions, WhichClassItIsAndWhichEventsItRaises) {
    const auto control = NewControl();
    const auto provider = control.As<IProvideClassInfo2>();
    GUID events{};
    ASSERT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, __uuidof(__FISControl));
    EXPECT_EQ(provider->GetGUID(99, &events), E_INVALIDARG);
    Com::ComPtr<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, CLSID_FISControl);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    info->ReleaseTypeAttr(attributes);
}

TEST(HostQuestions, WhichPicturesItGives) {
    const auto data = NewControl().As<IDataObject>();
    Com::ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Put()), S_OK);
    FORMATETC format{};
    std::vector<CLIPFORMAT> found;
    while (formats->Next(1, &format, nullptr) == S_OK) {
        found.push_back(format.cfFormat);
        EXPECT_EQ(data->QueryGetData(&format), S_OK);
        STGMEDIUM medium{};
        EXPECT_EQ(data->GetData(&format, &medium), S_OK);
        EXPECT_EQ(medium.tymed, format.tymed);
        ::ReleaseStgMedium(&medium);
    }
    EXPECT_EQ(found, (std::vector<CLIPFORMAT>{CF_ENHMETAFILE, CF_METAFILEPICT, CF_BITMAP}));
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, formats.Put()), E_NOTIMPL);
    STGMEDIUM none{};
    EXPECT_EQ(data->SetData(&format, &none, FALSE), E_NOTIMPL);
    format.tymed = TYMED_ISTREAM;
    EXPECT_EQ(data->QueryGetData(&format), DV_E_TYMED);
    format.tymed = TYMED_GDI;
    format.dwAspect = DVASPECT_ICON;
    EXPECT_EQ(data->QueryGetData(&format), DV_E_DVASPECT);
    FORMATETC same{};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &same), DATA_S_SAMEFORMATETC);
}

TEST(HostQuestions, HowItIsDrawnAndHit) {
    const auto view = NewControl().As<IViewObjectEx>();
    DWORD status = 0;
    EXPECT_EQ(view->GetViewStatus(&status), S_OK);
    EXPECT_EQ(status, DWORD{VIEWSTATUS_OPAQUE});
    RECTL whole{};
    EXPECT_EQ(view->GetRect(DVASPECT_CONTENT, &whole), S_OK);
    EXPECT_EQ(whole.right, 8467);
    EXPECT_EQ(whole.bottom, -5292);
    EXPECT_EQ(view->GetRect(DVASPECT_TRANSPARENT, &whole), DV_E_DVASPECT);
    const RECT bounds{0, 0, 10, 10};
    const RECT inside{8, 8, 20, 20};
    const RECT outside{10, 0, 20, 10};
    DWORD hit = 0;
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &inside, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_HIT});
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &outside, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_OUTSIDE});
    LOGPALETTE* palette = nullptr;
    EXPECT_EQ(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &palette),
              S_FALSE);
    Picture paper(320, 200);
    const RECTL page{0, 0, 320, 200};
    EXPECT_EQ(view->Draw(DVASPECT_DOCPRINT, -1, nullptr, nullptr, nullptr, paper.Context(), &page,
                         nullptr, nullptr, 0),
              S_OK);
    EXPECT_GT(paper.Ink({2, 24, 80, 38}), 0);
}

TEST(HostQuestions, WhatItWantsOfTheKeyboard) {
    const auto object = NewControl().As<IOleControl>();
    CONTROLINFO info{};
    info.cb = sizeof info;
    info.cAccel = 7;
    info.dwFlags = CTRLINFO_EATS_RETURN;
    ASSERT_EQ(object->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);
    EXPECT_EQ(info.hAccel, nullptr);
    EXPECT_EQ(info.dwFlags, 0U);
    EXPECT_EQ(object->OnMnemonic(nullptr), S_OK);
}

TEST(HostQuestions, WhichWindowItHasAndWhatItsFrameMayDo) {
    Form form;
    form.Place();
    const auto inPlace = form.As<IOleInPlaceObject>();
    const auto active = form.As<IOleInPlaceActiveObject>();
    HWND window = form.Window();
    EXPECT_EQ(active->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK) << "it is not active";
    EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
    form.Activate();
    EXPECT_EQ(active->GetWindow(&window), S_OK);
    EXPECT_EQ(window, form.Surface());
    EXPECT_EQ(active->OnFrameWindowActivate(FALSE), S_OK);
    EXPECT_EQ(active->OnDocWindowActivate(TRUE), S_OK);
    EXPECT_EQ(active->EnableModeless(FALSE), S_OK);
    EXPECT_EQ(active->ResizeBorder(nullptr, nullptr, TRUE), S_OK);
    EXPECT_EQ(active->TranslateAccelerator(nullptr), S_FALSE);
    EXPECT_EQ(inPlace->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
    EXPECT_EQ(inPlace->SetObjectRects(nullptr, nullptr), E_POINTER);
}

TEST(HostQuestions, WhatItIsAsAnEmbeddedObject) {
    Form form;
    form.Place();
    const auto object = form.As<IOleObject>();
    EXPECT_EQ(object->SetHostNames(L"Host", L"Document"), S_OK);
    EXPECT_EQ(object->IsUpToDate(), S_OK);
    EXPECT_EQ(object->Update(), S_OK);
    Com::ComPtr<IMoniker> moniker;
    EXPECT_EQ(object->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJREL, moniker.Put()),
              E_NOTIMPL);
    EXPECT_EQ(object->InitFromData(nullptr, TRUE, 0), E_NOTIMPL);
    Com::ComPtr<IOleClientSite> site;
    EXPECT_EQ(object->GetClientSite(site.Put()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(site.Get(), static_cast<IOleClientSite*>(&form.TheSite())));
    DWORD status = 1;
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
    EXPECT_EQ(status, 0U);
    EXPECT_EQ(object->Unadvise(7), OLE_E_NOCONNECTION);
}

} // namespace
} // namespace Quorvane
