// SPDX-License-Identifier: MIT
// The module as hosts load it: its classes, and when it may be unloaded.
#include <thread>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

class ControlModule : public ControlTest {};

TEST_F(ControlModule, HasAFactoryForTheControlOnly) {
    Com::ComPtr<IClassFactory> factory;
    EXPECT_EQ(
        Module().GetClassObject(__uuidof(::FISControl), __uuidof(IClassFactory), factory.PutVoid()),
        S_OK);
    EXPECT_EQ(
        Module().GetClassObject(__uuidof(_FISControl), __uuidof(IClassFactory), factory.PutVoid()),
        CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(ControlModule, MayGoWhileNothingIsLeftOfIt) {
    EXPECT_EQ(Module().CanUnloadNow(), S_OK);
    {
        const auto control = Create();
        EXPECT_EQ(Module().CanUnloadNow(), S_FALSE);
    }
    // A control that nobody has initialised leaves no system behind.
    EXPECT_EQ(Module().CanUnloadNow(), S_OK);
}

TEST_F(ControlModule, StaysWhileItIsLocked) {
    Com::ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        Module().GetClassObject(__uuidof(::FISControl), __uuidof(IClassFactory), factory.PutVoid()),
        S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(Module().CanUnloadNow(), S_FALSE);
    ASSERT_EQ(
        Module().GetClassObject(__uuidof(::FISControl), __uuidof(IClassFactory), factory.PutVoid()),
        S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.Reset();
    EXPECT_EQ(Module().CanUnloadNow(), S_OK);
}

TEST_F(ControlModule, StaysForTheSystemThatAControlHasLeft) {
    New(false);
    EXPECT_EQ(Module().CanUnloadNow(), S_FALSE);
}

TEST_F(ControlModule, StaysForTheErrorValuesOfAHost) {
    {
        const auto control = Create();
        ASSERT_EQ(control->putref_ErrOutVals(NewPlatformDictionary().Get()), S_OK);
    }
    EXPECT_EQ(Module().CanUnloadNow(), S_FALSE);
    Create()->putref_ErrOutVals(nullptr);
    EXPECT_EQ(Module().CanUnloadNow(), S_OK);
}

TEST_F(ControlModule, StaysForADictionaryThatAHostHolds) {
    auto placed = Run(Adder);
    const auto outputs = OutVals(placed);
    placed = {};
    EXPECT_EQ(Module().CanUnloadNow(), S_FALSE);
    EXPECT_EQ(Describe(ItemOf(outputs, u"Y")), "Double 500");
}

TEST_F(ControlModule, RefusesAnInstanceOnAnotherThreadWhileAnyLives) {
    HRESULT result = S_OK;
    Text description;
    const auto createOnThread = [&] {
        std::thread([&] {
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            {
                Com::ComPtr<_FISControl> other;
                result = CreateInstance(nullptr, __uuidof(_FISControl), other.PutVoid());
                Com::ComPtr<IErrorInfo> info;
                Com::Bstr text;
                if (FAILED(result) && ::GetErrorInfo(0, info.Put()) == S_OK) {
                    info->GetDescription(text.Put());
                }
                description = text.Characters();
            }
            ::CoUninitialize();
        }).join();
    };
    {
        const auto first = Create();
        createOnThread();
        EXPECT_EQ(result, RPC_E_WRONG_THREAD);
        EXPECT_NE(description.find(u"thread"), Text::npos) << Narrow(description);
    }
    createOnThread();
    EXPECT_EQ(result, S_OK) << "the last instance has freed the choice of the thread";
    const auto again = Create();
    EXPECT_TRUE(again);
}

TEST_F(ControlModule, MakesTheControlAsPartOfAnAggregate) {
    /// The least that an outer object is.
    class Outer final : public Com::ComObject<IOleClientSite> {
      public:
        STDMETHODIMP SaveObject() noexcept override { return S_OK; }
        STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
        STDMETHODIMP GetContainer(IOleContainer**) noexcept override { return E_NOTIMPL; }
        STDMETHODIMP ShowObject() noexcept override { return S_OK; }
        STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
        STDMETHODIMP RequestNewObjectLayout() noexcept override { return S_OK; }
    };
    const auto outer = Com::MakeObject<Outer>();
    Com::ComPtr<IUnknown> inner;
    Com::ComPtr<_FISControl> control;
    EXPECT_EQ(CreateInstance(outer.Get(), __uuidof(_FISControl), control.PutVoid()),
              CLASS_E_NOAGGREGATION);
    ASSERT_EQ(CreateInstance(outer.Get(), __uuidof(IUnknown), inner.PutVoid()), S_OK);
    ASSERT_EQ(inner->QueryInterface(__uuidof(_FISControl), control.PutVoid()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(control.Get(), outer.Get()));
    EXPECT_EQ(control->Fire(), S_OK);
}

} // namespace
} // namespace Quorvane
