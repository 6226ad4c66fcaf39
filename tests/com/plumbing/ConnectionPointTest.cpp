// SPDX-License-Identifier: MIT
// Connecting sinks, raising events, and sinks that change everything while they are called.
#include "com/ConnectionPoint.h"

#include <olectl.h>

#include <set>

#include "tests/com/plumbing/PlumbingTest.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane {
namespace {

class ConnectionPoint : public PlumbingTest {
  protected:
    void TearDown() override {
        trial_.Reset();
        PlumbingTest::TearDown();
    }

    /// Fires the event through the interface that a host uses.
    HRESULT Happen() { return Com::ComPtr<ITrial>(trial_)->Happen(); }

    Com::ComPtr<IConnectionPoint> Events() {
        return PointOf(trial_->ControllingUnknown(), __uuidof(TrialEvents));
    }

    TrialEnd end_;
    Com::ComPtr<Trial> trial_ = Com::MakeObject<Trial>(nullptr, &end_);
};

/// A sink that knows no interface but IDispatch.
class PlainSink final : public InvokeOnly<> {
  public:
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                        UINT*) noexcept override {
        ++Calls;
        exception->bstrDescription = ::SysAllocString(L"a handler that fails");
        return DISP_E_EXCEPTION;
    }

    int Calls = 0;
};

/// A sink of the events whose IDispatch is that of another object of its host.
class TwoFacedSink final : public CountingSink<TrialEvents> {
  public:
    explicit TwoFacedSink(Com::ComPtr<PlainSink> other) : other_(std::move(other)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        return iid == __uuidof(IDispatch) ? other_->QueryInterface(iid, result)
                                          : ComObject::QueryInterface(iid, result);
    }

  private:
    Com::ComPtr<PlainSink> other_;
};

class NotifySink final : public Com::ComObject<IPropertyNotifySink> {
  public:
    STDMETHODIMP OnChanged(DISPID property) noexcept override {
        Changed.push_back(property);
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

    std::vector<DISPID> Changed;
};

TEST_F(ConnectionPoint, RaisesAnEventWithItsArgumentsInDispatchOrder) {
    const auto sink = Com::MakeObject<TrialSink>();
    Advise(Events(), sink->ControllingUnknown());
    trial_->Number = 7;
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(sink->Events, std::vector<DISPID>{1});
    EXPECT_EQ(sink->Flags, DISPATCH_METHOD);
    ASSERT_EQ(sink->Arguments.size(), 2u);
    EXPECT_EQ(Com::View(sink->Arguments[0].Get().bstrVal), u"second");
    EXPECT_EQ(sink->Arguments[1].Get().lVal, 7);
}

TEST_F(ConnectionPoint, CallsTheInterfaceThatAnsweredToTheEvents) {
    const auto other = Com::MakeObject<PlainSink>();
    const auto sink = Com::MakeObject<TwoFacedSink>(other);
    Advise(Events(), static_cast<TrialEvents*>(sink.Get()));
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(sink->Count, 1u);
    EXPECT_EQ(other->Calls, 0);
}

TEST_F(ConnectionPoint, TakesAnyDispatchForEventsButNotForAnInterface) {
    const auto sink = Com::MakeObject<PlainSink>();
    Advise(Events(), sink->ControllingUnknown());
    const auto notifications = PointOf(trial_->ControllingUnknown(), __uuidof(IPropertyNotifySink));
    DWORD cookie = 1;
    EXPECT_EQ(notifications->Advise(sink->ControllingUnknown(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
}

TEST_F(ConnectionPoint, FindsItsPointsAndTheirContainer) {
    const auto container = Com::Query<IConnectionPointContainer>(trial_->ControllingUnknown());
    Com::ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(__uuidof(ITrial), point.Put()),
              CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(point);
    EXPECT_EQ(container->FindConnectionPoint(__uuidof(TrialEvents), nullptr), E_POINTER);

    point = Events();
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, __uuidof(TrialEvents));
    Com::ComPtr<IConnectionPointContainer> back;
    EXPECT_EQ(point->GetConnectionPointContainer(back.Put()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(back.Get(), container.Get()));
    EXPECT_FALSE(point.As<IConnectionPointContainer>()) << "a point is an object of its own";
}

TEST_F(ConnectionPoint, EnumeratesItsPoints) {
    const auto container = Com::Query<IConnectionPointContainer>(trial_->ControllingUnknown());
    Com::ComPtr<IEnumConnectionPoints> enumerator;
    ASSERT_EQ(container->EnumConnectionPoints(enumerator.Put()), S_OK);
    for (const IID& expected : {__uuidof(TrialEvents), __uuidof(IPropertyNotifySink)}) {
        Com::ComPtr<IConnectionPoint> point;
        ASSERT_EQ(enumerator->Next(1, point.Put(), nullptr), S_OK);
        IID iid{};
        EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
        EXPECT_EQ(iid, expected);
    }
    Com::ComPtr<IConnectionPoint> point;
    EXPECT_EQ(enumerator->Next(1, point.Put(), nullptr), S_FALSE);
}

TEST_F(ConnectionPoint, NeverUsesACookieTwice) {
    const auto point = Events();
    const auto sink = Com::MakeObject<TrialSink>();
    std::set<DWORD> cookies;
    for (int round = 0; round < 5; ++round) {
        const DWORD cookie = Advise(point, sink->ControllingUnknown());
        EXPECT_NE(cookie, 0u);
        EXPECT_TRUE(cookies.insert(cookie).second);
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
        EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    }
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_TRUE(sink->Events.empty());
}

TEST_F(ConnectionPoint, RefusesWhatCannotBeASink) {
    const auto point = Events();
    const auto notSink = Com::MakeObject<NotifySink>();
    DWORD cookie = 99;
    EXPECT_EQ(point->Advise(notSink->ControllingUnknown(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Advise(notSink->ControllingUnknown(), nullptr), E_POINTER);
}

TEST_F(ConnectionPoint, TakesASinkThatKnowsNothingButDispatchAndItsFailures) {
    const auto sink = Com::MakeObject<PlainSink>();
    Advise(Events(), sink->ControllingUnknown());
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(sink->Calls, 1);
}

TEST_F(ConnectionPoint, EnumeratesItsConnections) {
    const auto point = Events();
    const auto sink = Com::MakeObject<TrialSink>();
    const DWORD first = Advise(point, sink->ControllingUnknown());
    const DWORD second = Advise(point, sink->ControllingUnknown());
    Com::ComPtr<IEnumConnections> enumerator;
    ASSERT_EQ(point->EnumConnections(enumerator.Put()), S_OK);
    CONNECTDATA connections[3];
    ULONG fetched = 0;
    ASSERT_EQ(enumerator->Next(3, connections, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(connections[0].dwCookie, first);
    EXPECT_EQ(connections[1].dwCookie, second);
    for (ULONG index = 0; index < fetched; ++index) {
        const auto owned = Com::ComPtr<IUnknown>::Attach(connections[index].pUnk);
        EXPECT_TRUE(Com::IsSameObject(owned.Get(), sink->ControllingUnknown()));
    }
}

TEST_F(ConnectionPoint, LetsASinkUnadviseItselfWhileItIsCalled) {
    const auto point = Events();
    DWORD cookie = 0;
    const auto leaving =
        Com::MakeObject<TrialSink>([&] { EXPECT_EQ(point->Unadvise(cookie), S_OK); });
    const auto staying = Com::MakeObject<TrialSink>();
    cookie = Advise(point, leaving->ControllingUnknown());
    Advise(point, staying->ControllingUnknown());
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(leaving->Events.size(), 1u);
    EXPECT_EQ(staying->Events.size(), 2u);
}

TEST_F(ConnectionPoint, DoesNotCallASinkThatAnotherHasUnadvised) {
    const auto point = Events();
    DWORD cookie = 0;
    const auto remover =
        Com::MakeObject<TrialSink>([&] { EXPECT_EQ(point->Unadvise(cookie), S_OK); });
    auto removed = Com::MakeObject<TrialSink>();
    Advise(point, remover->ControllingUnknown());
    cookie = Advise(point, removed->ControllingUnknown());
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_TRUE(removed->Events.empty());
}

TEST_F(ConnectionPoint, DoesNotCallASinkThatCameDuringTheEvent) {
    const auto point = Events();
    const auto late = Com::MakeObject<TrialSink>();
    const auto host =
        Com::MakeObject<TrialSink>([&] { Advise(point, late->ControllingUnknown()); });
    Advise(point, host->ControllingUnknown());
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_TRUE(late->Events.empty());
}

TEST_F(ConnectionPoint, LetsASinkReleaseTheObjectWhileItIsCalled) {
    const auto sink = Com::MakeObject<TrialSink>([&] {
        trial_.Reset();
        EXPECT_EQ(end_.Destructions, 0) << "the call that raised the event is still running";
    });
    const auto second = Com::MakeObject<TrialSink>();
    Advise(Events(), sink->ControllingUnknown());
    Advise(Events(), second->ControllingUnknown());
    ITrial* const raw = trial_.Get();
    EXPECT_EQ(raw->Happen(), S_OK);
    EXPECT_EQ(second->Events.size(), 1u);
    EXPECT_EQ(end_.Destructions, 1);
}

TEST_F(ConnectionPoint, LetsASinkRaiseTheEventAgain) {
    int depth = 0;
    const auto sink = Com::MakeObject<TrialSink>([&] {
        if (++depth < 4) {
            EXPECT_EQ(Happen(), S_OK);
        }
    });
    Advise(Events(), sink->ControllingUnknown());
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(sink->Events.size(), 4u);
}

TEST_F(ConnectionPoint, RaisesNothingWhileEventsAreFrozen) {
    const auto sink = Com::MakeObject<TrialSink>();
    Advise(Events(), sink->ControllingUnknown());
    trial_->FreezeEvents(true);
    trial_->FreezeEvents(true);
    trial_->FreezeEvents(false);
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_TRUE(sink->Events.empty());
    trial_->FreezeEvents(false);
    trial_->FreezeEvents(false);
    EXPECT_EQ(Happen(), S_OK);
    EXPECT_EQ(sink->Events.size(), 1u);
}

TEST_F(ConnectionPoint, NotifiesSinksOfACustomInterface) {
    const auto sink = Com::MakeObject<NotifySink>();
    const auto point = PointOf(trial_->ControllingUnknown(), __uuidof(IPropertyNotifySink));
    Advise(point, sink->ControllingUnknown());
    trial_->Changed(-518);
    EXPECT_EQ(sink->Changed, std::vector<DISPID>{-518});
}

TEST_F(ConnectionPoint, OutlivesItsObjectWithoutSinks) {
    const auto point = Events();
    const auto sink = Com::MakeObject<TrialSink>();
    Advise(point, sink->ControllingUnknown());
    trial_.Reset();
    EXPECT_EQ(end_.Destructions, 1) << "a held point does not keep its object";
    Com::ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.Put()), E_UNEXPECTED);
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(sink->ControllingUnknown(), &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST_F(ConnectionPoint, NamesItsClassAndItsEvents) {
    const auto provider = Com::Query<IProvideClassInfo2>(trial_->ControllingUnknown());
    ASSERT_TRUE(provider);
    GUID guid{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
    EXPECT_EQ(guid, __uuidof(TrialEvents));
    EXPECT_EQ(provider->GetGUID(0, &guid), E_INVALIDARG);
    Com::ComPtr<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(::TrialClass));
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    info->ReleaseTypeAttr(attributes);
}

} // namespace
} // namespace Quorvane
