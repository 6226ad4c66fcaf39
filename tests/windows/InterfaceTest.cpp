// SPDX-License-Identifier: MIT
// The interfaces that hosts ask the control for, and the small ones' answers.
#include <windows.h>

#include <objsafe.h>
#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "com/ObjectSafety.h"
#include "com/PropertyBrowsing.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

struct AskedFor {
    const char* Name;
    IID Id;
};

#define ASKED(I)                                                                                   \
    AskedFor {                                                                                     \
#I, __uuidof(I)                                                                            \
    }

const AskedFor Interfaces[] = {ASKED(IUnknown),
                               ASKED(IDispatch),
                               ASKED(_FISControl),
                               ASKED(ISupportErrorInfo),
                               ASKED(IConnectionPointContainer),
                               ASKED(IProvideClassInfo),
                               ASKED(IProvideClassInfo2),
                               ASKED(IPersist),
                               ASKED(IPersistStreamInit),
                               ASKED(IPersistPropertyBag),
                               ASKED(IPersistStorage),
                               ASKED(IOleObject),
                               ASKED(IOleControl),
                               ASKED(IOleWindow),
                               ASKED(IOleInPlaceObject),
                               ASKED(IOleInPlaceActiveObject),
                               ASKED(IViewObject),
                               ASKED(IViewObject2),
                               ASKED(IViewObjectEx),
                               ASKED(IDataObject),
                               ASKED(IQuickActivate),
                               ASKED(IRunnableObject),
                               ASKED(ISpecifyPropertyPages),
                               ASKED(IPerPropertyBrowsing),
                               ASKED(Com::ICategorizeProperties),
                               ASKED(IObjectSafety)};

#undef ASKED

TEST(Interfaces, AreAllThereAndOfOneIdentity) {
    const auto control = NewControl();
    for (const AskedFor& item : Interfaces) {
        Com::ComPtr<IUnknown> found;
        ASSERT_EQ(control->QueryInterface(item.Id, found.PutVoid()), S_OK) << item.Name;
        EXPECT_TRUE(Com::IsSameObject(found.Get(), control.Get())) << item.Name;
        for (const AskedFor& other : Interfaces) {
            Com::ComPtr<IUnknown> back;
            EXPECT_EQ(found->QueryInterface(other.Id, back.PutVoid()), S_OK)
                << item.Name << " to " << other.Name;
        }
    }
}

TEST(Interfaces, NameThreePropertyPages) {
    const auto control = NewControl();
    CAUUID pages{};
    ASSERT_EQ(control.As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 3U);
    EXPECT_EQ(pages.pElems[0], CLSID_FIS_IO);
    EXPECT_EQ(pages.pElems[1], CLSID_CFontPropPage);
    EXPECT_EQ(pages.pElems[2], CLSID_CColorPropPage);
    ::CoTaskMemFree(pages.pElems);
}

TEST(Interfaces, TellAPropertyBrowserOfPagesAndCategories) {
    const auto control = NewControl();
    const auto browsing = control.As<IPerPropertyBrowsing>();
    const auto categories = control.As<Com::ICategorizeProperties>();
    const struct {
        DISPID Property;
        CLSID Page;
        int Category;
    } cases[] = {
        {DISPID_CAPTION, CLSID_NULL, -5},
        {DISPID_ENABLED, CLSID_NULL, -6},
        {DISPID_FONT, CLSID_CFontPropPage, -3},
        {DISPID_BACKCOLOR, CLSID_CColorPropPage, -5},
        {DISPID_FORECOLOR, CLSID_CColorPropPage, -5},
        {0x68030007, CLSID_FIS_IO, -7},
        {0x68030006, CLSID_FIS_IO, -7},
        {0x68030005, CLSID_FIS_IO, -7},
    };
    for (const auto& [property, expected, expectedCategory] : cases) {
        CLSID page{};
        EXPECT_EQ(browsing->MapPropertyToPage(property, &page),
                  expected == CLSID_NULL ? PERPROP_E_NOPAGEAVAILABLE : S_OK)
            << property;
        EXPECT_EQ(page, expected) << property;
        int category = 0;
        EXPECT_EQ(categories->MapPropertyToCategory(property, &category), S_OK) << property;
        EXPECT_EQ(category, expectedCategory) << property;
    }
    CLSID page{};
    int category = 1;
    EXPECT_EQ(browsing->MapPropertyToPage(12345, &page), PERPROP_E_NOPAGEAVAILABLE);
    EXPECT_EQ(categories->MapPropertyToCategory(12345, &category), E_FAIL);
    EXPECT_EQ(browsing->MapPropertyToPage(DISPID_FONT, nullptr), E_POINTER);
    EXPECT_EQ(categories->MapPropertyToCategory(DISPID_FONT, nullptr), E_POINTER);
}

TEST(Interfaces, LeaveThePropertyBrowsersOwnWords) {
    const auto control = NewControl();
    const auto browsing = control.As<IPerPropertyBrowsing>();
    Com::Bstr text;
    EXPECT_EQ(browsing->GetDisplayString(DISPID_FONT, text.Put()), E_NOTIMPL);
    EXPECT_EQ(control.As<Com::ICategorizeProperties>()->GetCategoryName(1, 1033, text.Put()),
              E_FAIL);
    EXPECT_EQ(text.Get(), nullptr);
    CALPOLESTR texts{7, nullptr};
    CADWORD cookies{7, nullptr};
    EXPECT_EQ(browsing->GetPredefinedStrings(DISPID_FONT, &texts, &cookies), E_NOTIMPL);
    EXPECT_EQ(texts.cElems + cookies.cElems, 0U);
    Com::Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(DISPID_FONT, 0, value.Put()), E_NOTIMPL);
}

TEST(Interfaces, AreSafeForUntrustedDataAndNeverForUntrustedCallers) {
    const auto safety = NewControl().As<IObjectSafety>();
    const IID bag = __uuidof(IPersistPropertyBag);
    DWORD supported = 0;
    DWORD enabled = 0;
    ASSERT_EQ(safety->GetInterfaceSafetyOptions(bag, &supported, &enabled), S_OK);
    EXPECT_EQ(supported, DWORD{INTERFACESAFE_FOR_UNTRUSTED_DATA});
    ASSERT_EQ(safety->GetInterfaceSafetyOptions(__uuidof(IDispatch), &supported, &enabled), S_OK);
    EXPECT_EQ(enabled & INTERFACESAFE_FOR_UNTRUSTED_CALLER, 0U);
    constexpr DWORD Data = INTERFACESAFE_FOR_UNTRUSTED_DATA;
    constexpr DWORD Caller = INTERFACESAFE_FOR_UNTRUSTED_CALLER;
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(bag, Data, Data), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(bag, Caller, Caller), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(bag, Data | Caller, Data | Caller), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(bag, Caller, 0), S_OK);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(__uuidof(IPersistFile), &supported, &enabled),
              E_NOINTERFACE);
}

TEST(Interfaces, OfferOneVerbForMenus) {
    const auto object = NewControl().As<IOleObject>();
    Com::ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(object->EnumVerbs(verbs.Put()), S_OK);
    OLEVERB verb{};
    ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
    EXPECT_EQ(verb.lVerb, 1);
    EXPECT_EQ(verb.grfAttribs, DWORD{OLEVERBATTRIB_ONCONTAINERMENU});
    EXPECT_STREQ(verb.lpszVerbName, L"&Properties...");
    ::CoTaskMemFree(verb.lpszVerbName);
    EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);
}

TEST(Interfaces, SayWhatKindOfObjectTheControlIs) {
    const auto object = NewControl().As<IOleObject>();
    DWORD status = 0;
    ASSERT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, DWORD{OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                            OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST});
    LPOLESTR name = nullptr;
    ASSERT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
    EXPECT_STREQ(name, L"Quorvane fuzzy inference control");
    ::CoTaskMemFree(name);
    CLSID clsid{};
    ASSERT_EQ(object->GetUserClassID(&clsid), S_OK);
    EXPECT_EQ(clsid, CLSID_FISControl);
    const auto runnable = object.As<IRunnableObject>();
    EXPECT_TRUE(runnable->IsRunning());
    EXPECT_EQ(runnable->Run(nullptr), S_OK);
    EXPECT_EQ(runnable->GetRunningClass(&clsid), S_OK);
    EXPECT_EQ(clsid, CLSID_FISControl);
}

TEST(Interfaces, KeepTheExtentTheyAreGiven) {
    const auto object = NewControl().As<IOleObject>();
    SIZEL size{};
    ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 8467);
    EXPECT_EQ(size.cy, 5292);
    size = {1000, 2000};
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    SIZEL other{};
    ASSERT_EQ(object.As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &other), S_OK);
    EXPECT_EQ(other.cx, 1000);
    ASSERT_EQ(object.As<IQuickActivate>()->GetContentExtent(&other), S_OK);
    EXPECT_EQ(other.cy, 2000);
    EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
    size = {-1, 5};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), E_INVALIDARG);
}

TEST(Interfaces, ConnectEverythingInAQuickActivation) {
    Form form;
    const auto control = NewControl();
    const auto object = control.As<IOleObject>();
    QACONTAINER container{};
    container.cbSize = sizeof container;
    container.pClientSite = &form.TheSite();
    container.pPropertyNotifySink = &form.TheSite();
    container.pUnkEventSink = static_cast<IDispatch*>(&form.TheSite());
    QACONTROL answer{};
    answer.cbSize = sizeof answer;
    ASSERT_EQ(control.As<IQuickActivate>()->QuickActivate(&container, &answer), S_OK);
    EXPECT_NE(answer.dwEventCookie, 0U);
    EXPECT_NE(answer.dwPropNotifyCookie, 0U);
    EXPECT_NE(answer.dwMiscStatus & OLEMISC_INSIDEOUT, 0U);
    ASSERT_EQ(control.As<IPersistStreamInit>()->InitNew(), S_OK);
    ASSERT_EQ(control.As<_FISControl>()->put_BackColor(5), S_OK);
    EXPECT_EQ(form.TheSite().Changed, std::vector<DISPID>{DISPID_BACKCOLOR});
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
}

Com::ComPtr<IStorage> NewStorage() {
    Com::ComPtr<ILockBytes> bytes;
    Com::ComPtr<IStorage> storage;
    EXPECT_EQ(::CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()), S_OK);
    EXPECT_EQ(::StgCreateDocfileOnILockBytes(bytes.Get(),
                                             STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                             storage.Put()),
              S_OK);
    return storage;
}

TEST(Interfaces, KeepTheControlInAStorage) {
    const auto storage = NewStorage();
    SIZEL extent{5000, 4000};
    {
        const auto control = NewControl();
        const auto persist = control.As<IPersistStorage>();
        ASSERT_EQ(persist->InitNew(storage.Get()), S_OK);
        control.As<_FISControl>()->put_Caption(Com::Bstr(u"Stored").Get());
        EXPECT_EQ(control.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
        EXPECT_EQ(persist->IsDirty(), S_OK);
        ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
        EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
        EXPECT_EQ(persist->IsDirty(), S_FALSE);
        EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    }
    CLSID clsid{};
    EXPECT_EQ(::ReadClassStg(storage.Get(), &clsid), S_OK);
    EXPECT_EQ(clsid, CLSID_FISControl);
    const auto control = NewControl();
    ASSERT_EQ(control.As<IPersistStorage>()->Load(storage.Get()), S_OK);
    Com::Bstr caption;
    ASSERT_EQ(control.As<_FISControl>()->get_Caption(caption.Put()), S_OK);
    EXPECT_EQ(caption.Characters(), u"Stored");
    extent = {};
    EXPECT_EQ(control.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(extent.cx, 5000);
    EXPECT_EQ(extent.cy, 4000);
}

TEST(Interfaces, StayUnsavedAfterACopyAndNotAfterANewStorage) {
    const auto storage = NewStorage();
    const auto control = NewControl();
    const auto persist = control.As<IPersistStorage>();
    ASSERT_EQ(persist->InitNew(storage.Get()), S_OK);
    ASSERT_EQ(persist->Save(storage.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK) << "what was saved is a copy";
    ASSERT_EQ(persist->Save(storage.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(storage.Get()), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE) << "what was saved is the control's own from now on";
}

TEST(Interfaces, TellAdvisorySinksOfChangesSavesAndTheEnd) {
    Form form;
    form.Place();
    const auto object = form.As<IOleObject>();
    DWORD cookie = 0;
    ASSERT_EQ(object->Advise(&form.TheSite(), &cookie), S_OK);
    ASSERT_EQ(form.As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, &form.TheSite()), S_OK);
    FORMATETC picture{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    DWORD dataCookie = 0;
    ASSERT_EQ(form.As<IDataObject>()->DAdvise(&picture, ADVF_NODATA, &form.TheSite(), &dataCookie),
              S_OK);
    form.Calls().Clear();
    form.Control()->put_ForeColor(3);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 1);
    EXPECT_EQ(form.Calls().Count("OnDataChange"), 1);
    ASSERT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(form.Calls().Count("SaveObject"), 1);
    EXPECT_EQ(form.Calls().Count("OnClose"), 1);
    EXPECT_EQ(object->Unadvise(cookie), S_OK);
    EXPECT_EQ(form.As<IDataObject>()->DUnadvise(dataCookie), S_OK);
    form.As<IViewObject>()->SetAdvise(0, 0, nullptr);
}

TEST(Interfaces, PrimeAndForgetAViewSinkThatAsksForIt) {
    Form form;
    form.Place();
    const auto view = form.As<IViewObject>();
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, &form.TheSite()),
              S_OK);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 1);
    form.Control()->put_ForeColor(3);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 1);
    Com::ComPtr<IAdviseSink> sink;
    DWORD aspects = 0;
    ASSERT_EQ(view->GetAdvise(&aspects, nullptr, sink.Put()), S_OK);
    EXPECT_FALSE(sink);
}

TEST(Interfaces, RefuseNullOutParameters) {
    const auto control = NewControl();
    EXPECT_EQ(control.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(control.As<IOleObject>()->EnumVerbs(nullptr), E_POINTER);
    EXPECT_EQ(control.As<IOleControl>()->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(control.As<IOleInPlaceObject>()->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(control.As<ISpecifyPropertyPages>()->GetPages(nullptr), E_POINTER);
    EXPECT_EQ(control.As<IDataObject>()->GetData(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(control.As<IQuickActivate>()->QuickActivate(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(control.As<IViewObjectEx>()->GetViewStatus(nullptr), E_POINTER);
    EXPECT_EQ(control.As<IPersistStorage>()->Save(nullptr, TRUE), E_POINTER);
}

} // namespace
} // namespace Quorvane
