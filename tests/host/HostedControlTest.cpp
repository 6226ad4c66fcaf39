// SPDX-License-Identifier: MIT
// HostedControlTest: the order in which a host calls its control, its site and its events.
#include "host/container/HostedControl.h"

#include "host/container/ErrorLog.h"
#include "host/container/HResult.h"
#include "tests/host/Apartment.h"
#include "tests/host/StandInControl.h"

namespace {

using namespace Quorvane::Host;
using namespace std::string_literals;
using Calls = std::vector<std::string>;

class HostedControlTest : public InApartment {
  protected:
    HostedControl Host(StandInSettings settings = {}) {
        auto control = MakeCom<StandInControl>(settings, calls_);
        control_ = control.Get();
        return HostedControl(Query<IUnknown>(static_cast<IDispatch*>(control.Get())), L"Stand",
                             AmbientProperties::OfAnOrdinaryForm());
    }

    HRESULT Ambient(ControlSite& site, DISPID id, Variant& value) {
        DISPPARAMS none{};
        return site.Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
    }

    Calls calls_;
    StandInControl* control_ = nullptr;
};

TEST_F(HostedControlTest, GivesTheSiteFirstToAControlThatAsksForIt) {
    {
        HostedControl hosted = Host();
        hosted.Load({}, nullptr);
    }
    EXPECT_EQ(calls_, (Calls{"FreezeEvents", "SetClientSite", "Load", "ThawEvents", "Close",
                             "SetClientSite(null)", "destroyed"}));
}

TEST_F(HostedControlTest, GivesTheSiteAfterLoadingOtherwise) {
    {
        HostedControl hosted = Host({.MiscStatus = 0});
        hosted.Load({}, nullptr);
    }
    EXPECT_EQ(calls_, (Calls{"FreezeEvents", "Load", "SetClientSite", "ThawEvents", "Close",
                             "SetClientSite(null)", "destroyed"}));
}

TEST_F(HostedControlTest, StartsANewControlWithoutLoading) {
    HostedControl hosted = Host();
    hosted.InitNew();
    EXPECT_EQ(calls_, (Calls{"FreezeEvents", "SetClientSite", "InitNew", "ThawEvents"}));
}

TEST_F(HostedControlTest, ClosesOnceAndDisconnectsEventsBefore) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    hosted.ReceiveEvents([](const std::wstring&, DISPPARAMS&) {});
    calls_.clear();
    hosted.Close();
    hosted.Close();
    EXPECT_EQ(calls_, (Calls{"Unadvise", "Close", "SetClientSite(null)", "destroyed"}));
}

TEST_F(HostedControlTest, AFailedLoadIsAnErrorAndStillClosesTheControl) {
    try {
        HostedControl hosted = Host({.LoadResult = E_ACCESSDENIED});
        hosted.Load({}, nullptr);
        ADD_FAILURE() << "the load did not fail";
    } catch (const HResultError& error) {
        EXPECT_EQ(error.Result, E_ACCESSDENIED);
        EXPECT_EQ(std::string(error.what()).rfind("cannot load Stand: 0x80070005", 0), 0u)
            << error.what();
    }
    EXPECT_EQ(calls_.back(), "destroyed");
}

TEST_F(HostedControlTest, SavesWhatItLoaded) {
    FormProperties properties;
    properties.Set({u"Caption", u"Hello"s});
    properties.Set({u"Count", 3});
    HostedControl hosted = Host();
    hosted.Load(properties, nullptr);
    EXPECT_EQ(control_->Caption, L"Hello");
    EXPECT_EQ(control_->Count, 3);
    ASSERT_TRUE(hosted.CanSave());
    EXPECT_EQ(hosted.Save(), properties);
}

TEST_F(HostedControlTest, ReportsAPropertyThatCannotBeRead) {
    FormProperties properties;
    properties.Set({u"Count", u"many"s});
    std::vector<std::wstring> errors;
    const auto log = MakeCom<ErrorLog>([&](const std::wstring& line) { errors.push_back(line); });
    HostedControl hosted = Host();
    EXPECT_THROW(hosted.Load(properties, log.Get()), HResultError);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].rfind(L"Count: ", 0), 0u);
}

TEST_F(HostedControlTest, HostsAnObjectThatIsNoControl) {
    CLSID clsid{};
    ASSERT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &clsid), S_OK);
    ComPtr<IUnknown> dictionary;
    ASSERT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                               dictionary.ReceiveVoid()),
              S_OK);
    HostedControl hosted(dictionary, L"Values", AmbientProperties::OfAnOrdinaryForm());
    hosted.Load({}, nullptr);
    hosted.ReceiveEvents([](const std::wstring&, DISPPARAMS&) {});
    EXPECT_FALSE(hosted.CanSave());
    EXPECT_NE(hosted.Dispatch(), nullptr);
    EXPECT_THROW(hosted.Save(), HResultError);
    FormProperties properties;
    properties.Set({u"A", 1});
    EXPECT_THROW(hosted.Load(properties, nullptr), HResultError);
}

TEST_F(HostedControlTest, TheSiteOffersTheAmbientProperties) {
    HostedControl hosted = Host();
    ControlSite& site = hosted.Site();
    Variant value;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_USERMODE, value), S_OK);
    EXPECT_EQ(value.vt, VT_BOOL);
    EXPECT_EQ(value.boolVal, VARIANT_TRUE);
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_LOCALEID, value), S_OK);
    EXPECT_EQ(value.lVal, static_cast<LONG>(GetUserDefaultLCID()));
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_BACKCOLOR, value), S_OK);
    EXPECT_EQ(value.lVal, static_cast<LONG>(0x8000000F));
    Variant name;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_DISPLAYNAME, name), S_OK);
    EXPECT_EQ(ViewBstr(name.bstrVal), L"Stand");
    Variant font;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_FONT, font), S_OK);
    ASSERT_EQ(font.vt, VT_DISPATCH);
    ComPtr<IFont> asFont;
    EXPECT_EQ(font.pdispVal->QueryInterface(asFont.Receive()), S_OK);
}

TEST_F(HostedControlTest, AnAmbientPropertyCanChangeOrBeMissing) {
    HostedControl hosted = Host();
    ControlSite& site = hosted.Site();
    site.Ambients().Set(DISPID_AMBIENT_USERMODE, Variant(false));
    Variant value;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_USERMODE, value), S_OK);
    EXPECT_EQ(value.boolVal, VARIANT_FALSE);
    site.Ambients().Remove(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(Ambient(site, DISPID_AMBIENT_USERMODE, value), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Ambient(site, 12345, value), DISP_E_MEMBERNOTFOUND);
    DISPPARAMS none{};
    EXPECT_EQ(site.Invoke(DISPID_AMBIENT_LOCALEID, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none,
                          nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(site.Invoke(DISPID_AMBIENT_LOCALEID, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                          nullptr, nullptr, nullptr),
              E_POINTER);
}

TEST_F(HostedControlTest, TheSiteKnowsTheAmbientPropertiesByName) {
    HostedControl hosted = Host();
    std::wstring name = L"usermode";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    EXPECT_EQ(hosted.Site().GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    EXPECT_EQ(id, DISPID_AMBIENT_USERMODE);
    name = L"Nonsense";
    names[0] = name.data();
    EXPECT_EQ(hosted.Site().GetIDsOfNames(IID_NULL, names, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST_F(HostedControlTest, TheSiteIsOneObject) {
    HostedControl hosted = Host();
    ControlSite& site = hosted.Site();
    const IID ids[] = {__uuidof(IUnknown), __uuidof(IOleClientSite), __uuidof(IOleControlSite),
                       __uuidof(IDispatch)};
    ComPtr<IUnknown> identity;
    ASSERT_EQ(site.QueryInterface(__uuidof(IUnknown), identity.ReceiveVoid()), S_OK);
    for (const IID& id : ids) {
        ComPtr<IUnknown> found;
        ComPtr<IUnknown> again;
        ASSERT_EQ(site.QueryInterface(id, found.ReceiveVoid()), S_OK);
        ASSERT_EQ(found->QueryInterface(again.Receive()), S_OK);
        EXPECT_EQ(again.Get(), identity.Get());
    }
    void* none = &site;
    EXPECT_EQ(site.QueryInterface(__uuidof(IPersist), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    IOleContainer* container = reinterpret_cast<IOleContainer*>(&site);
    EXPECT_EQ(site.GetContainer(&container), E_NOINTERFACE);
    EXPECT_EQ(container, nullptr);
}

TEST_F(HostedControlTest, EventsArriveByNameWithTheirArguments) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    std::vector<std::wstring> events;
    hosted.ReceiveEvents([&](const std::wstring& event, DISPPARAMS& arguments) {
        events.push_back(event + L"/" + std::to_wstring(arguments.cArgs));
        if (arguments.cArgs == 1)
            events.back() += L"/" + std::to_wstring(arguments.rgvarg[0].lVal);
    });
    Variant argument(42L);
    control_->Raise(1);
    control_->Raise(7, &argument);
    control_->Raise(99);
    EXPECT_EQ(events, (std::vector<std::wstring>{L"Started/0", L"Changed/1/42"}));
}

TEST_F(HostedControlTest, TheTypeInformationNamesTheEvents) {
    HostedControl hosted = Host();
    const SourceInterface source = FindSourceInterface(hosted.Object());
    EXPECT_EQ(source.Id, StandInEvents);
    EXPECT_EQ(source.Events, (std::map<DISPID, std::wstring>{{1, L"Started"}, {7, L"Changed"}}));
}

TEST_F(HostedControlTest, AHandlerMayEndTheConnectionAndCloseTheControl) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    int events = 0;
    hosted.ReceiveEvents([&](const std::wstring&, DISPPARAMS&) {
        ++events;
        hosted.Disconnect();
    });
    control_->Raise(1);
    control_->Raise(1);
    EXPECT_EQ(events, 1);
    hosted.ReceiveEvents([&](const std::wstring&, DISPPARAMS&) {
        ++events;
        const ComPtr<IUnknown> keepAlive(hosted.Object());
        hosted.Close();
    });
    const ComPtr<StandInControl> keepAlive(control_);
    control_->Raise(1);
    control_->Raise(1);
    EXPECT_EQ(events, 2);
}

TEST_F(HostedControlTest, ANewHandlerReplacesTheOldOne) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    int first = 0;
    int second = 0;
    hosted.ReceiveEvents([&](const std::wstring&, DISPPARAMS&) { ++first; });
    hosted.ReceiveEvents([&](const std::wstring&, DISPPARAMS&) { ++second; });
    control_->Raise(1);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

} // namespace
