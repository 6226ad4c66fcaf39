// SPDX-License-Identifier: MIT
// HostedControlTest: the order in which a host calls its control, its site and its events.
#include "host/container/HostedControl.h"

#include "com/FailedCall.h"
#include "host/container/ErrorLog.h"
#include "tests/host/Apartment.h"
#include "tests/host/StandInControl.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using namespace std::string_literals;
using Calls = std::vector<std::string>;

class HostedControlTest : public InApartment {
  protected:
    HostedControl Host(StandInSettings settings = {}) {
        auto control = Com::MakeObject<StandInControl>(settings, calls_);
        control_ = control.Get();
        return HostedControl(Com::Query<IUnknown>(static_cast<IDispatch*>(control.Get())), u"Stand",
                             AmbientProperties::OfAnOrdinaryForm());
    }

    HRESULT Ambient(ControlSite& site, DISPID id, Com::Variant& value) {
        DISPPARAMS none{};
        return site.Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value.Get(), nullptr,
                           nullptr);
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
    hosted.ReceiveEvents([](const Text&, DISPPARAMS&) {});
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
    } catch (const Com::HresultError& error) {
        EXPECT_EQ(error.Code(), E_ACCESSDENIED);
        EXPECT_EQ(error.Description().rfind(u"cannot load Stand: 0x80070005", 0), 0u);
    }
    EXPECT_EQ(calls_.back(), "destroyed");
}

TEST_F(HostedControlTest, SavesWhatItLoaded) {
    FormProperties properties;
    properties.Set({u"Caption", u"Hello"s});
    properties.Set({u"Count", 3});
    HostedControl hosted = Host();
    hosted.Load(properties, nullptr);
    EXPECT_EQ(control_->Caption, u"Hello");
    EXPECT_EQ(control_->Count, 3);
    ASSERT_TRUE(hosted.CanSave());
    EXPECT_EQ(hosted.Save(), properties);
}

TEST_F(HostedControlTest, ReportsAPropertyThatCannotBeRead) {
    FormProperties properties;
    properties.Set({u"Count", u"many"s});
    std::vector<Text> errors;
    const auto log = Com::MakeObject<ErrorLog>([&](const Text& line) { errors.push_back(line); });
    HostedControl hosted = Host();
    EXPECT_THROW(hosted.Load(properties, log.Get()), Com::HresultError);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].rfind(u"Count: ", 0), 0u);
}

TEST_F(HostedControlTest, HostsAnObjectThatIsNoControl) {
    CLSID clsid{};
    ASSERT_EQ(::CLSIDFromProgID(L"Scripting.Dictionary", &clsid), S_OK);
    Com::ComPtr<IUnknown> dictionary;
    ASSERT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                 dictionary.PutVoid()),
              S_OK);
    HostedControl hosted(dictionary, u"Values", AmbientProperties::OfAnOrdinaryForm());
    hosted.Load({}, nullptr);
    hosted.ReceiveEvents([](const Text&, DISPPARAMS&) {});
    EXPECT_FALSE(hosted.CanSave());
    EXPECT_NE(hosted.Dispatch(), nullptr);
    EXPECT_THROW(hosted.Save(), Com::HresultError);
    FormProperties properties;
    properties.Set({u"A", 1});
    EXPECT_THROW(hosted.Load(properties, nullptr), Com::HresultError);
}

TEST_F(HostedControlTest, TheSiteOffersTheAmbientProperties) {
    HostedControl hosted = Host();
    ControlSite& site = hosted.Site();
    Com::Variant value;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_USERMODE, value), S_OK);
    EXPECT_EQ(value.Get().vt, VT_BOOL);
    EXPECT_EQ(value.Get().boolVal, VARIANT_TRUE);
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_LOCALEID, value), S_OK);
    EXPECT_EQ(value.Get().lVal, static_cast<LONG>(::GetUserDefaultLCID()));
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_BACKCOLOR, value), S_OK);
    EXPECT_EQ(value.Get().lVal, static_cast<LONG>(0x8000000F));
    Com::Variant name;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_DISPLAYNAME, name), S_OK);
    EXPECT_EQ(Com::View(name.Get().bstrVal), u"Stand");
    Com::Variant font;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_FONT, font), S_OK);
    ASSERT_EQ(font.Get().vt, VT_DISPATCH);
    Com::ComPtr<IFont> asFont;
    EXPECT_EQ(font.Get().pdispVal->QueryInterface(asFont.Put()), S_OK);
}

TEST_F(HostedControlTest, AnAmbientPropertyCanChangeOrBeMissing) {
    HostedControl hosted = Host();
    ControlSite& site = hosted.Site();
    site.Ambients().Set(DISPID_AMBIENT_USERMODE, Com::Variant(false));
    Com::Variant value;
    ASSERT_EQ(Ambient(site, DISPID_AMBIENT_USERMODE, value), S_OK);
    EXPECT_EQ(value.Get().boolVal, VARIANT_FALSE);
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
    Com::ComPtr<IUnknown> identity;
    ASSERT_EQ(site.QueryInterface(__uuidof(IUnknown), identity.PutVoid()), S_OK);
    for (const IID& id : ids) {
        Com::ComPtr<IUnknown> found;
        Com::ComPtr<IUnknown> again;
        ASSERT_EQ(site.QueryInterface(id, found.PutVoid()), S_OK);
        ASSERT_EQ(found->QueryInterface(again.Put()), S_OK);
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
    std::vector<Text> events;
    hosted.ReceiveEvents([&](const Text& event, DISPPARAMS& arguments) {
        events.push_back(event + u"/" + Widen(std::to_string(arguments.cArgs)));
        if (arguments.cArgs == 1)
            events.back() += u"/" + Widen(std::to_string(arguments.rgvarg[0].lVal));
    });
    Com::Variant argument(42);
    control_->Raise(1);
    control_->Raise(7, &argument.Get());
    control_->Raise(99);
    EXPECT_EQ(events, (std::vector<Text>{u"Started/0", u"Changed/1/42"}));
}

TEST_F(HostedControlTest, TheTypeInformationNamesTheEvents) {
    HostedControl hosted = Host();
    const SourceInterface source = FindSourceInterface(hosted.Object());
    EXPECT_EQ(source.Id, StandInEvents);
    EXPECT_EQ(source.Events, (std::map<DISPID, Text>{{1, u"Started"}, {7, u"Changed"}}));
}

TEST_F(HostedControlTest, AHandlerMayEndTheConnectionAndCloseTheControl) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    int events = 0;
    hosted.ReceiveEvents([&](const Text&, DISPPARAMS&) {
        ++events;
        hosted.Disconnect();
    });
    control_->Raise(1);
    control_->Raise(1);
    EXPECT_EQ(events, 1);
    hosted.ReceiveEvents([&](const Text&, DISPPARAMS&) {
        ++events;
        const Com::ComPtr<IUnknown> keepAlive(hosted.Object());
        hosted.Close();
    });
    const Com::ComPtr<StandInControl> keepAlive(control_);
    control_->Raise(1);
    control_->Raise(1);
    EXPECT_EQ(events, 2);
}

TEST_F(HostedControlTest, ANewHandlerReplacesTheOldOne) {
    HostedControl hosted = Host();
    hosted.Load({}, nullptr);
    int first = 0;
    int second = 0;
    hosted.ReceiveEvents([&](const Text&, DISPPARAMS&) { ++first; });
    hosted.ReceiveEvents([&](const Text&, DISPPARAMS&) { ++second; });
    control_->Raise(1);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

} // namespace
