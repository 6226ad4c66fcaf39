// SPDX-License-Identifier: MIT
// Making instances, the rule of the one thread, and when the module may be unloaded.
#include "com/ClassFactory.h"

#include <oleauto.h>

#include <thread>

#include "com/Scoped.h"
#include "tests/com/plumbing/PlumbingTest.h"

namespace Quorvane {
namespace {

using ClassFactory = PlumbingTest;

Com::ComPtr<IClassFactory> TrialFactory() {
    Com::ComPtr<IClassFactory> factory;
    EXPECT_EQ(Com::GetClassObject(__uuidof(::TrialClass), IID_IClassFactory, factory.PutVoid()),
              S_OK);
    return factory;
}

Com::ComPtr<ITrial> NewTrial() {
    Com::ComPtr<ITrial> trial;
    EXPECT_EQ(TrialFactory()->CreateInstance(nullptr, __uuidof(ITrial), trial.PutVoid()), S_OK);
    return trial;
}

/// What creating an instance on a thread of its own gives.
struct OtherThread {
    HRESULT Result;
    Text Description;
};

OtherThread CreateOnOtherThread() {
    OtherThread outcome{};
    std::thread([&] {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        {
            Com::ComPtr<ITrial> trial;
            outcome.Result =
                TrialFactory()->CreateInstance(nullptr, __uuidof(ITrial), trial.PutVoid());
            Com::ComPtr<IErrorInfo> info;
            Com::Bstr description;
            if (::GetErrorInfo(0, info.Put()) == S_OK && info) {
                EXPECT_EQ(info->GetDescription(description.Put()), S_OK);
            }
            outcome.Description = description.Characters();
        }
        ::CoUninitialize();
    }).join();
    return outcome;
}

TEST_F(ClassFactory, KnowsTheClassesOfTheTableOnly) {
    void* result = &result;
    EXPECT_EQ(Com::GetClassObject(__uuidof(ITrial), IID_IClassFactory, &result),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(Com::GetClassObject(__uuidof(::TrialClass), IID_IOleObject, &result), E_NOINTERFACE);
    EXPECT_EQ(Com::GetClassObject(__uuidof(::TrialClass), IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassFactory, MakesInstances) {
    const auto trial = NewTrial();
    LONG number = -1;
    EXPECT_EQ(trial->get_Number(&number), S_OK);
    EXPECT_EQ(number, 0);
}

TEST_F(ClassFactory, LeavesNothingBehindWhereTheInterfaceIsMissing) {
    void* result = &result;
    EXPECT_EQ(TrialFactory()->CreateInstance(nullptr, IID_IOleObject, &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(Com::ModuleLockCount(), 0);
}

TEST_F(ClassFactory, AggregatesOnlyThroughTheInnerUnknown) {
    const auto outer = NewTrial();
    void* result = &result;
    EXPECT_EQ(TrialFactory()->CreateInstance(outer.Get(), __uuidof(ITrial), &result),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(result, nullptr);
}

TEST_F(ClassFactory, RefusesASecondThreadWhileInstancesLive) {
    auto trial = NewTrial();
    const OtherThread refused = CreateOnOtherThread();
    EXPECT_EQ(refused.Result, RPC_E_WRONG_THREAD);
    EXPECT_NE(refused.Description.find(u"one thread"), Text::npos);
    EXPECT_TRUE(NewTrial()) << "the first thread goes on";
    trial.Reset();
    EXPECT_EQ(CreateOnOtherThread().Result, S_OK) << "the thread is free to choose again";
    EXPECT_TRUE(NewTrial());
}

/// Makes an instance on a thread that ends without releasing it.
Com::ComPtr<ITrial> LeftByAThread() {
    Com::ComPtr<ITrial> left;
    std::thread([&] { left = NewTrial(); }).join();
    return left;
}

TEST_F(ClassFactory, GivesUpWhatAThreadLeftThatHasEnded) {
    const int before = TrialStatesGivenUp;
    auto left = LeftByAThread();
    const OtherThread next = CreateOnOtherThread();
    EXPECT_EQ(next.Result, S_OK);
    EXPECT_EQ(TrialStatesGivenUp, before + 1);
    const auto trial = NewTrial();
    ASSERT_TRUE(trial);
    EXPECT_EQ(TrialStatesGivenUp, before + 1) << "that thread has released its own";
    left.Reset();
    EXPECT_EQ(CreateOnOtherThread().Result, RPC_E_WRONG_THREAD)
        << "what is left does not count for the living";
}

TEST_F(ClassFactory, GivesUpMoreThanOneThread) {
    const int before = TrialStatesGivenUp;
    const auto first = LeftByAThread();
    const auto second = LeftByAThread();
    const auto third = NewTrial();
    EXPECT_TRUE(third);
    EXPECT_EQ(TrialStatesGivenUp, before + 2);
}

TEST_F(ClassFactory, DoesNotCountHelperObjectsAsInstances) {
    const auto helper = Com::MakeObject<TrialBag>();
    EXPECT_EQ(CreateOnOtherThread().Result, S_OK);
}

TEST_F(ClassFactory, CountsAnAggregatedInstance) {
    auto outer = Com::MakeObject<TrialBag>();
    Com::ComPtr<IUnknown> inner;
    ASSERT_EQ(
        TrialFactory()->CreateInstance(outer->ControllingUnknown(), IID_IUnknown, inner.PutVoid()),
        S_OK);
    EXPECT_EQ(CreateOnOtherThread().Result, RPC_E_WRONG_THREAD);
}

TEST_F(ClassFactory, LetsTheModuleGoWithoutObjectsLocksAndState) {
    EXPECT_EQ(Com::CanUnloadNow(), S_OK);
    auto trial = NewTrial();
    EXPECT_EQ(Com::CanUnloadNow(), S_FALSE) << "an object lives";
    trial.Reset();
    EXPECT_EQ(Com::CanUnloadNow(), S_OK);

    auto factory = TrialFactory();
    EXPECT_EQ(Com::CanUnloadNow(), S_FALSE) << "a factory is held";
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(Com::CanUnloadNow(), S_FALSE) << "the server is locked";
    EXPECT_EQ(TrialFactory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(Com::CanUnloadNow(), S_OK);

    TrialHoldsState = true;
    EXPECT_EQ(Com::CanUnloadNow(), S_FALSE) << "the module holds state";
    TrialHoldsState = false;
    EXPECT_EQ(Com::CanUnloadNow(), S_OK);
}

} // namespace
} // namespace Quorvane
