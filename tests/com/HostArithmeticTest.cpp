// SPDX-License-Identifier: MIT
// Hosts that trap floating point errors, or round and flush in their own way.
#include <xmmintrin.h>

#include <cstdint>

#include "tests/com/support/BatchTest.h"
#include "tests/com/support/HostDictionary.h"

namespace Quorvane {
namespace {

// The bits of the vector unit's state.
constexpr unsigned NothingTraps = 0x1F80;
constexpr unsigned InvalidZeroAndOverflowTrap = NothingTraps & ~0x0680u;
constexpr unsigned TowardZero = NothingTraps | 0x6000;
constexpr unsigned TinyIsZero = NothingTraps | 0x8040;

/// While it lives, the thread computes as a host has set it up.
class HostArithmeticState {
  public:
    explicit HostArithmeticState(unsigned state) : state_(state), former_(_mm_getcsr()) {
        _mm_setcsr(state);
    }
    ~HostArithmeticState() {
        // Flags that say what has happened may have been set; the host's choice must be there.
        constexpr unsigned flags = 0x3F;
        EXPECT_EQ(_mm_getcsr() & ~flags, state_ & ~flags) << "the host's choice is back";
        _mm_setcsr(former_);
    }
    HostArithmeticState(const HostArithmeticState&) = delete;
    HostArithmeticState& operator=(const HostArithmeticState&) = delete;

  private:
    unsigned state_;
    unsigned former_;
};

/// The choice of the vector unit, without the flags that say what has happened.
unsigned ChoiceNow() {
    return _mm_getcsr() & ~0x3Fu;
}

unsigned X87Now() {
    std::uint16_t word = 0;
    asm volatile("fnstcw %0" : "=m"(word) : : "memory");
    return word;
}

/// While it lives, the x87 unit rounds towards zero.
class X87ChoiceOfHost {
  public:
    static constexpr std::uint16_t TowardZero = 0x0E7F;

    X87ChoiceOfHost() : former_(static_cast<std::uint16_t>(X87Now())) {
        asm volatile("fldcw %0" : : "m"(TowardZero) : "memory");
    }
    ~X87ChoiceOfHost() { asm volatile("fldcw %0" : : "m"(former_) : "memory"); }
    X87ChoiceOfHost(const X87ChoiceOfHost&) = delete;
    X87ChoiceOfHost& operator=(const X87ChoiceOfHost&) = delete;

  private:
    std::uint16_t former_;
};

/// A third of a thing, which has to be rounded, and outputs that are tiny.
constexpr System Thirds = {
    u"X/3/0/Low,0,0,0,3;High,0,3,3,3",
    u"Y/10/0/Zero,0;Point,0.1|Z/1/0/Zero,0;Tiny,4E-320",
    u"X>Low/Y<Zero;Z<Zero:0.7|X>High/Y<Point;Z<Tiny:0.3",
};

class HostArithmetic : public BatchTest {
  protected:
    static void FireIn(unsigned state, const Placed& placed) {
        const HostArithmeticState host(state);
        const HRESULT result = placed->Fire();
        EXPECT_EQ(result, S_OK);
    }
};

TEST_F(HostArithmetic, DoesNotChangeWhatACycleComputes) {
    const auto placed = Run(Thirds);
    PutItem(InVals(placed), u"X", 1);
    EXPECT_EQ(placed->Fire(), S_OK);
    const double y = Output(placed, u"Y");
    const double z = Output(placed, u"Z");
    EXPECT_GT(z, 0);
    for (const unsigned state : {TowardZero, TinyIsZero, InvalidZeroAndOverflowTrap}) {
        PutItem(InVals(placed), u"X", 2);
        EXPECT_EQ(placed->Fire(), S_OK);
        PutItem(InVals(placed), u"X", 1);
        FireIn(state, placed);
        EXPECT_EQ(Output(placed, u"Y"), y) << std::hex << state;
        EXPECT_EQ(Output(placed, u"Z"), z) << std::hex << state;
    }
}

TEST_F(HostArithmetic, DoesNotTrapWhatFailsACycle) {
    const auto placed = Run({Adder.Inputs, u"Y/1000/0/Zero,0;Top,1E308", u"X>High/Y<Top:1E200"});
    for (const double x : {128.0, std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity()}) {
        PutItem(InVals(placed), u"X", x);
        FireIn(InvalidZeroAndOverflowTrap, placed);
        EXPECT_EQ(Output(placed, u"Y"), 500) << x;
    }
}

TEST_F(HostArithmetic, DoesNotChangeWhatALoadReads) {
    const auto plain = Run(Thirds);
    PutItem(InVals(plain), u"X", 3);
    EXPECT_EQ(plain->Fire(), S_OK);
    const double z = Output(plain, u"Z");
    EXPECT_GT(z, 0);
    for (const unsigned state : {TowardZero, TinyIsZero, InvalidZeroAndOverflowTrap}) {
        const auto placed = Place(true);
        const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Thirds));
        {
            const HostArithmeticState host(state);
            EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
        }
        EXPECT_EQ(Output(placed, u"Y"), 5);
        PutItem(InVals(placed), u"X", 3);
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Output(placed, u"Y"), 0.1) << std::hex << state;
        EXPECT_EQ(Output(placed, u"Z"), z) << std::hex << state;
        const auto broken =
            Com::MakeObject<TestBag>(PropertiesOf({u"X/1E999/0/Low,0,0,0,1", Adder.Outputs, u""}));
        const HostArithmeticState host(state);
        EXPECT_TRUE(FAILED(LoadFrom(placed.Control, *broken)));
    }
}

TEST_F(HostArithmetic, DoesNotChangeTheBatchFiles) {
    const auto placed = Run(Thirds);
    Batch(placed, 7);
    const std::string inData = Folder().Read("InData.txt");
    const std::string outData = Folder().Read("OutData.txt");
    for (const unsigned state : {TowardZero, TinyIsZero, InvalidZeroAndOverflowTrap}) {
        {
            const HostArithmeticState host(state);
            CallBatchData(placed, Folder().Path(), 7);
        }
        ExpectFiles(inData, outData);
    }
}

TEST_F(HostArithmetic, IsTheHostsInWhatABatchCalls) {
    const auto placed = Run(Thirds);
    Batch(placed, 1);
    const std::string inData = Folder().Read("InData.txt");
    const std::string outData = Folder().Read("OutData.txt");
    const auto inputs = Com::MakeObject<HostDictionary>();
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    std::vector<unsigned> seen;
    std::vector<unsigned> seenX87;
    inputs->OnPut = [&](const Text&) { seen.push_back(ChoiceNow()); };
    const auto sink = Com::MakeObject<EventSink>([&] {
        seen.push_back(ChoiceNow());
        seenX87.push_back(X87Now());
    });
    const Connection connection(placed.Control.Get(), sink.Get());
    {
        const HostArithmeticState host(TowardZero);
        const X87ChoiceOfHost x87;
        CallBatchData(placed, Folder().Path(), 1);
    }
    EXPECT_EQ(seen, std::vector<unsigned>(4, TowardZero));
    EXPECT_EQ(seenX87, std::vector<unsigned>(2, X87ChoiceOfHost::TowardZero));
    ExpectFiles(inData, outData);
}

TEST_F(HostArithmetic, KeepsWhatAHandlerChooses) {
    const auto placed = Run(Thirds);
    const auto sink = Com::MakeObject<EventSink>([] { _mm_setcsr(TinyIsZero); });
    const Connection connection(placed.Control.Get(), sink.Get());
    const unsigned former = _mm_getcsr();
    CallBatchData(placed, Folder().Path(), 1);
    EXPECT_EQ(ChoiceNow(), TinyIsZero);
    _mm_setcsr(former);
}

TEST_F(HostArithmetic, IsTheHostsWhileItReadsAMessage) {
    const auto placed = Run(Thirds);
    const HostArithmeticState host(TowardZero);
    unsigned seen = 0;
    const MessageBoxes boxes([&] { seen = ChoiceNow(); });
    CallBatchData(placed, u"", 1);
    EXPECT_EQ(boxes.Shown.size(), 1u);
    EXPECT_EQ(seen, TowardZero);
}

} // namespace
} // namespace Quorvane
