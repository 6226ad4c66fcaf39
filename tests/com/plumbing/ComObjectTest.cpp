// SPDX-License-Identifier: MIT
// Identity, reference counts and aggregation of COM objects.
#include "com/ComObject.h"

#include "tests/com/plumbing/PlumbingTest.h"

namespace Quorvane {
namespace {

using ComObject = PlumbingTest;

/// An outer object that is nothing but a Trial inside, and counts its own references.
class Outer final : public IUnknown {
  public:
    Outer() { Com::CreateInstance<Trial>(this, IID_IUnknown, inner_.PutVoid()); }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        if (iid == IID_IUnknown) {
            AddRef();
            *result = static_cast<IUnknown*>(this);
            return S_OK;
        }
        return inner_->QueryInterface(iid, result);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++Count; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --Count; }

    IUnknown* Inner() const noexcept { return inner_.Get(); }

    ULONG Count = 1;

  private:
    Com::ComPtr<IUnknown> inner_;
};

const IID TrialInterfaces[] = {
    __uuidof(IUnknown),
    __uuidof(ITrial),
    __uuidof(IDispatch),
    __uuidof(ISupportErrorInfo),
    __uuidof(IPersist),
    __uuidof(IPersistStreamInit),
    __uuidof(IConnectionPointContainer),
    __uuidof(IProvideClassInfo),
    __uuidof(IProvideClassInfo2),
};

TEST_F(ComObject, GivesOneIdentityThroughEveryInterface) {
    const auto trial = Com::MakeObject<Trial>();
    for (const IID& from : TrialInterfaces) {
        Com::ComPtr<IUnknown> through;
        ASSERT_EQ(trial->QueryInterface(from, through.PutVoid()), S_OK);
        for (const IID& to : TrialInterfaces) {
            Com::ComPtr<IUnknown> other;
            ASSERT_EQ(through->QueryInterface(to, other.PutVoid()), S_OK);
            EXPECT_TRUE(Com::IsSameObject(through.Get(), other.Get()));
        }
    }
    EXPECT_EQ(Com::Query<IUnknown>(static_cast<ITrial*>(trial.Get())).Get(),
              trial->ControllingUnknown());
}

TEST_F(ComObject, RefusesOtherInterfacesAndClearsTheResult) {
    const auto trial = Com::MakeObject<Trial>();
    void* result = &result;
    EXPECT_EQ(trial->QueryInterface(IID_IOleObject, &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(trial->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ComObject, AnswersAnAncestorThroughTheTableOfItsDescendant) {
    const auto trial = Com::MakeObject<Trial>();
    const auto persist = Com::Query<IPersist>(trial->ControllingUnknown());
    ASSERT_TRUE(persist);
    CLSID clsid{};
    EXPECT_EQ(persist->GetClassID(&clsid), S_OK);
    EXPECT_EQ(clsid, __uuidof(::TrialClass));
}

TEST_F(ComObject, EndsOnceThoughItIsUsedDuringItsEnd) {
    TrialEnd end;
    auto trial = Com::MakeObject<Trial>(nullptr, &end);
    Com::ComPtr<ITrial> second = trial;
    trial.Reset();
    EXPECT_EQ(end.FinalReleases, 0);
    second.Reset();
    EXPECT_EQ(end.FinalReleases, 1);
    EXPECT_EQ(end.Destructions, 1);
}

TEST_F(ComObject, KeepsTheModuleLoadedUntilItEnds) {
    auto trial = Com::MakeObject<Trial>();
    EXPECT_GT(Com::ModuleLockCount(), 0);
    trial.Reset();
    EXPECT_EQ(Com::ModuleLockCount(), 0);
}

TEST_F(ComObject, DelegatesEveryInterfaceToItsOuterObject) {
    Outer outer;
    for (const IID& iid : TrialInterfaces) {
        Com::ComPtr<IUnknown> through;
        ASSERT_EQ(outer.QueryInterface(iid, through.PutVoid()), S_OK);
        EXPECT_EQ(outer.Count, 2u) << "references belong to the outer object";
        EXPECT_EQ(Com::Query<IUnknown>(through.Get()).Get(), &outer);
    }
    EXPECT_EQ(outer.Count, 1u);
}

TEST_F(ComObject, KeepsItsInnerUnknownToItself) {
    const Outer outer;
    EXPECT_EQ(Com::Query<IUnknown>(outer.Inner()).Get(), outer.Inner());
    const Com::ComPtr<IUnknown> further(outer.Inner());
    EXPECT_EQ(outer.Count, 1u);
}

TEST_F(ComObject, CountsAWayOfKeepingItAliveOnItsOuterObject) {
    Outer outer;
    {
        Com::ComPtr<ITrial> trial;
        ASSERT_EQ(outer.QueryInterface(__uuidof(ITrial), trial.PutVoid()), S_OK);
        const Com::KeepAlive keep(static_cast<Trial*>(trial.Get()));
        EXPECT_EQ(outer.Count, 3u);
    }
    EXPECT_EQ(outer.Count, 1u);
}

} // namespace
} // namespace Quorvane
