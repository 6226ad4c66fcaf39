// SPDX-License-Identifier: MIT
// Hosts that trap floating point errors, or round and flush in their own way.
#include <xmmintrin.h>

#include <cstdint>
#include <functional>
#include <map>
#include <set>

#include "tests/com/support/BatchTest.h"
#include "tests/com/support/HostDictionary.h"
#include "tests/com/support/ValueObject.h"

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

/// What code of a host has seen of the arithmetic, by where it ran.
class Sightings {
  public:
    std::function<void()> At(const char* place) {
        return [this, place] { seen_[place].insert(ChoiceNow()); };
    }

    /// Each of the places must have been there, and have seen the host's choice only.
    void ExpectOnly(unsigned choice, std::initializer_list<const char*> places) const {
        for (const char* const place : places) {
            const auto found = seen_.find(place);
            ASSERT_NE(found, seen_.end()) << place << " did not run";
            EXPECT_EQ(found->second, std::set<unsigned>{choice}) << place;
        }
        EXPECT_EQ(seen_.size(), places.size());
    }

  private:
    std::map<std::string, std::set<unsigned>> seen_;
};

std::function<void(const Text&)> ForAnyKey(std::function<void()> handler) {
    return [handler = std::move(handler)](const Text&) { handler(); };
}

/// An object that computes when it ends.
class LastWords final : public InvokeOnly<> {
  public:
    explicit LastWords(std::function<void()> words) : words_(std::move(words)) {}
    ~LastWords() override { words_(); }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return DISP_E_MEMBERNOTFOUND;
    }

  private:
    std::function<void()> words_;
};

Com::Variant NewLastWords(std::function<void()> words) {
    return Com::Variant(
        static_cast<IDispatch*>(Com::MakeObject<LastWords>(std::move(words)).Get()));
}

/// A view sink that looks when it is told of a change.
class ViewSink final : public Com::ComObject<IAdviseSink> {
  public:
    explicit ViewSink(std::function<void()> look) : look_(std::move(look)) {}
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override { look_(); }
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override {}
    STDMETHODIMP_(void) OnSave() noexcept override {}
    STDMETHODIMP_(void) OnClose() noexcept override {}

  private:
    std::function<void()> look_;
};

TEST_F(HostArithmetic, IsTheHostsInWhateverACycleCalls) {
    Sightings seen;
    const auto placed = Run(Thirds);
    const auto view = Com::MakeObject<ViewSink>(seen.At("a view sink"));
    EXPECT_EQ(As<IViewObject>(placed)->SetAdvise(DVASPECT_CONTENT, 0, view.Get()), S_OK);
    EXPECT_EQ(placed->put_DataShow(VARIANT_TRUE), S_OK);
    const auto input = Com::MakeObject<ValueObject>(Com::Variant(1.0));
    input->OnRead = seen.At("an input's default property");
    const auto inputs = Com::MakeObject<HostDictionary>();
    PutItem(*inputs, u"X", input->AsVariant().Get());
    inputs->OnExists = ForAnyKey(seen.At("a question to a dictionary"));
    inputs->OnGet = ForAnyKey(seen.At("an item of a dictionary"));
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    const auto errors = Com::MakeObject<HostDictionary>();
    errors->OnExists = ForAnyKey(seen.At("the error outputs"));
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    FireIn(TowardZero, placed);
    input->Value = TextValue(u"none");
    PutItem(OutVals(placed), u"Y", NewLastWords(seen.At("an output that goes")));
    FireIn(TowardZero, placed);
    seen.ExpectOnly(TowardZero,
                    {"a view sink", "an input's default property", "a question to a dictionary",
                     "an item of a dictionary", "the error outputs", "an output that goes"});
    EXPECT_EQ(As<IViewObject>(placed)->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(HostArithmetic, IsTheHostsInTheDefaultsAndTheOutputsOfABatch) {
    Sightings seen;
    const auto placed = Run({Thirds.Inputs, Thirds.Outputs, u"X>Low/Y<Zero;Z<[NONE]:1"});
    const auto standard = Com::MakeObject<ValueObject>(Com::Variant(0.25));
    standard->OnRead = seen.At("the default property of an output");
    const auto defaults = Com::MakeObject<HostDictionary>();
    PutItem(*defaults, u"Y", Com::Variant(1.0).Get());
    PutItem(*defaults, u"Z", standard->AsVariant().Get());
    defaults->OnGet = ForAnyKey(seen.At("the defaults"));
    {
        const HostArithmeticState host(TowardZero);
        EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
        CallBatchData(placed, Folder().Path(), 1);
    }
    seen.ExpectOnly(TowardZero, {"the default property of an output", "the defaults"});
    ExpectFiles("0\r\n3\r\n", "0 0.25 \r\n1 0.25 \r\n");
}

TEST_F(HostArithmetic, IsTheHostsInWhateverAStartCalls) {
    Sightings seen;
    const auto placed = Run(Thirds);
    {
        const auto inputs = Com::MakeObject<HostDictionary>();
        PutItem(*inputs, u"X", NewLastWords(seen.At("a dictionary that goes")).Get());
        EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    }
    placed.Site->OnAsked = [look = seen.At("the site")](DISPID) { look(); };
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Thirds));
    bag->OnRead = ForAnyKey(seen.At("the bag"));
    const auto view = Com::MakeObject<ViewSink>(seen.At("a view sink"));
    EXPECT_EQ(As<IViewObject>(placed)->SetAdvise(DVASPECT_CONTENT, 0, view.Get()), S_OK);
    {
        const HostArithmeticState host(TowardZero);
        EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
        EXPECT_EQ(InitNew(placed.Control), S_OK);
    }
    seen.ExpectOnly(TowardZero, {"a dictionary that goes", "the site", "the bag", "a view sink"});
    placed.Site->OnAsked = {};
    EXPECT_EQ(As<IViewObject>(placed)->SetAdvise(0, 0, nullptr), S_OK);
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
