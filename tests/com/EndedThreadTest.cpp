// SPDX-License-Identifier: MIT
// Controls that a thread has left behind.
#include <thread>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/HostDictionary.h"

namespace Quorvane {
namespace {

class EndedThread : public ControlTest {
  protected:
    /// A running control, and the host's dictionaries that it holds, from a thread that has ended.
    Placed Left(const Com::ComPtr<HostDictionary>& inputs,
                const Com::ComPtr<HostDictionary>& errors) const {
        Placed left;
        std::thread([&] {
            EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
            left = Run(Adder);
            EXPECT_EQ(left->putref_InVals(inputs.Get()), S_OK);
            EXPECT_EQ(left->putref_ErrOutVals(errors.Get()), S_OK);
            ::CoUninitialize();
        }).join();
        return left;
    }

    static ULONG References(const Com::ComPtr<HostDictionary>& object) {
        object->AddRef();
        return object->Release();
    }
};

TEST_F(EndedThread, LeavesTheProcessToTheNextOne) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto errors = Com::MakeObject<HostDictionary>();
    Placed left = Left(inputs, errors);
    const ULONG held = References(inputs);
    inputs->Calls.clear();

    const auto placed = Run(Adder);
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(FireWith(placed, TextValue(u"none")), 500) << "not the error outputs of that thread";
    const auto next = New(true);
    EXPECT_EQ(next->Fire(), S_OK) << "more than one control";
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);

    // As the clean-up of some languages does, on whatever thread it runs.
    left = {};
    EXPECT_EQ(FireWith(placed, 2), 130) << "the model is not that of what was left";
    EXPECT_TRUE(inputs->Calls.empty());
    EXPECT_TRUE(errors->Calls.empty());
    EXPECT_EQ(References(inputs), held) << "not even released";
    // The references that are given up for good.
    inputs->Release();
    errors->Release();
}

TEST_F(EndedThread, IsNotOneThatHasReleasedItsControls) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto errors = Com::MakeObject<HostDictionary>();
    const ULONG before = References(errors);
    std::thread([&] {
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        const auto placed = Run(Adder);
        EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
        EXPECT_EQ(placed->putref_ErrOutVals(nullptr), S_OK);
        ::CoUninitialize();
    }).join();
    EXPECT_EQ(References(errors), before);
    EXPECT_EQ(FireWith(Run(Adder), 1), 129);
}

} // namespace
} // namespace Quorvane
