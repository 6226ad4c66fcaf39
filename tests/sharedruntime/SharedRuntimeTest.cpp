// SPDX-License-Identifier: MIT
// The control and a host with the compiler's runtime in DLLs, each with exceptions of its own.
#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

class SharedRuntime : public ControlTest {
  protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(::GetModuleHandleA(QUORVANE_SHARED_LIBGCC));
        ASSERT_TRUE(::GetModuleHandleA("libstdc++-6.dll"));
    }

    /// Makes the control throw inside.
    static HRESULT SetAtRunTime(const Placed& placed) {
        return SetText(*placed, &_FISControl::put_Inputs, u"X");
    }
    static constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E);
};

/// The host's own exceptions.
std::string ThrownAndCaught(const char* text) {
    try {
        throw std::runtime_error(text);
    } catch (const std::exception& error) {
        return error.what();
    }
}

TEST_F(SharedRuntime, LetsControlAndHostThrowInTurn) {
    const auto placed = Run(Adder);
    EXPECT_EQ(ThrownAndCaught("before"), "before");
    EXPECT_EQ(SetAtRunTime(placed), NotAtRunTime);
    EXPECT_EQ(ThrownAndCaught("after"), "after");
}

TEST_F(SharedRuntime, LetsControlAndHostThrowInAHandlerOfTheEvent) {
    const auto placed = Run(Adder);
    HRESULT inner = S_OK;
    const auto sink = Com::MakeObject<EventSink>([&] {
        try {
            inner = SetAtRunTime(placed);
            throw std::runtime_error("in the handler");
        } catch (const std::exception&) {
            EXPECT_EQ(SetAtRunTime(placed), NotAtRunTime);
        }
    });
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(FireWith(placed, 5), 133);
    EXPECT_EQ(inner, NotAtRunTime);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(SharedRuntime, OutlivesTheModuleAndServesTheNext) {
    for (int life = 0; life < 3; ++life) {
        EXPECT_EQ(SetAtRunTime(Run(Adder)), NotAtRunTime);
        TearDown();
        EXPECT_EQ(ThrownAndCaught("without the module"), "without the module");
        Load();
    }
}

/// A thread that is older than the module throws in it for the first time.
TEST_F(SharedRuntime, ServesAThreadThatIsOlderThanTheModule) {
    TearDown();
    std::atomic<bool> isLoaded = false;
    HRESULT result = S_OK;
    std::thread thread([&] {
        while (!isLoaded) {
            ::Sleep(1);
        }
        result = Module().GetClassObject(__uuidof(_FISControl), __uuidof(IClassFactory), nullptr);
    });
    Load();
    isLoaded = true;
    thread.join();
    EXPECT_EQ(result, E_POINTER);
}

} // namespace
} // namespace Quorvane
