// SPDX-License-Identifier: MIT
// What the calls of a host take from the heap once they have run before: nothing.
#include "tests/com/support/BatchTest.h"
#include "tests/com/support/HeapWatch.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane {
namespace {

/// A host that holds the dictionaries, and its keys as texts.
struct Host {
    explicit Host(const Placed& placed)
        : Control(placed.Control), Inputs(InVals(placed)), Outputs(OutVals(placed)) {}

    /// A round of A and B in, a cycle, and the sum out.
    double Round(double a, double b) {
        VARIANT value = Com::Variant(a).Get();
        Succeeded = Inputs->put_Item(&A.Get(), &value) == S_OK;
        value.dblVal = b;
        Succeeded = Succeeded && Inputs->put_Item(&B.Get(), &value) == S_OK;
        Succeeded = Succeeded && Control->Fire() == S_OK;
        Succeeded = Succeeded && Outputs->get_Item(&Sum.Get(), &value) == S_OK;
        return value.dblVal;
    }

    Com::ComPtr<_FISControl> Control;
    Com::ComPtr<IDictionary> Inputs;
    Com::ComPtr<IDictionary> Outputs;
    Com::Variant A{TextView(u"A")};
    Com::Variant B{TextView(u"b")};
    Com::Variant Sum{TextView(u"Sum")};
    bool Succeeded = true;
};

class Allocation : public BatchTest {
  protected:
    /// Rounds with values on flanks and at points, the same again, and outside, where no rule fires
    /// and the output is its default.
    static void ExpectNoneInRounds(const Placed& placed) {
        struct Round {
            double A, B, Sum;
        };
        constexpr Round Rounds[] = {{1, 2, 6},  {0.5, 3, 5}, {2, 4, 12},
                                    {2, 4, 12}, {-1, 1, 6},  {0.25, 0, 1}};
        Host host(placed);
        host.Round(1, 1);
        for (const auto& [a, b, sum] : Rounds) {
            double result = 0;
            std::size_t taken = 0;
            {
                const HeapWatch watch;
                result = host.Round(a, b);
                taken = HeapWatch::Count();
            }
            EXPECT_TRUE(host.Succeeded);
            EXPECT_EQ(result, sum);
            EXPECT_EQ(taken, 0u) << a << ", " << b;
        }
    }
};

TEST_F(Allocation, IsSeenInEveryModule) {
    const auto placed = Run(TwoInputs);
    const Text longText(1000, u'x');
    std::size_t own = 0;
    std::size_t ofText = 0;
    std::size_t ofControl = 0;
    {
        const HeapWatch watch;
        EXPECT_GT(watch.WatchedCalls(), 3u);
        ::CoTaskMemFree(::CoTaskMemAlloc(1));
        own = HeapWatch::Count();
        const Com::Variant caption{TextView(longText)};
        ofText = HeapWatch::Count();
        EXPECT_EQ(placed->put_Caption(caption.Get().bstrVal), S_OK);
        ofControl = HeapWatch::Count();
    }
    EXPECT_EQ(own, 1u);
    EXPECT_GT(ofText, own);
    EXPECT_GT(ofControl, ofText);
}

TEST_F(Allocation, NoneInARoundOfItemsAndFire) {
    ExpectNoneInRounds(Run(TwoInputs));
}

TEST_F(Allocation, NoneWithASink) {
    const auto placed = Run(TwoInputs);
    const auto sink = Com::MakeObject<CountingSink<>>();
    const Connection connection(placed.Control.Get(), __uuidof(__FISControl), sink.Get());
    ExpectNoneInRounds(placed);
    EXPECT_EQ(sink->Count, 7u);
}

TEST_F(Allocation, NoneInReadingTheSystemsDictionaries) {
    const auto placed = Run(TwoInputs);
    Host host(placed);
    host.Round(1, 2);
    Com::ComPtr<IDictionary> inputs;
    VARIANT item{};
    VARIANT_BOOL exists = VARIANT_FALSE;
    LONG count = 0;
    bool succeeded = true;
    std::size_t taken = 0;
    {
        const HeapWatch watch;
        succeeded = placed->get_InVals(inputs.Put()) == S_OK &&
                    inputs->Exists(&host.B.Get(), &exists) == S_OK &&
                    inputs->get_Count(&count) == S_OK &&
                    inputs->get_Item(&host.B.Get(), &item) == S_OK;
        taken = HeapWatch::Count();
    }
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(exists, VARIANT_TRUE);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(item.dblVal, 2);
    EXPECT_EQ(taken, 0u);
}

TEST_F(Allocation, OfABatchDoesNotDependOnTheNumberOfPoints) {
    const auto placed = Run(TwoInputs);
    const Com::Bstr path(Folder().Path());
    const auto sink = Com::MakeObject<CountingSink<>>();
    const Connection connection(placed.Control.Get(), __uuidof(__FISControl), sink.Get());
    struct Use {
        std::size_t Count;
        std::size_t Bytes;
    };
    const auto run = [&](LONG part) {
        BSTR pathArgument = path.Get();
        const HeapWatch watch;
        const HRESULT result = placed->BatchData(&pathArgument, &part);
        const Use use{HeapWatch::Count(), HeapWatch::Bytes()};
        EXPECT_EQ(result, S_OK);
        return use;
    };
    run(1);
    const Use few = run(20);
    const Use many = run(299);
    EXPECT_EQ(sink->Count, 4u + 21 * 21 + 300 * 300);
    EXPECT_EQ(few.Count, many.Count);
    // The texts of the points of both axes are kept, but not those of the points of the grid.
    EXPECT_LT(many.Bytes - few.Bytes, std::size_t{2} * 279 * 48);
    EXPECT_GT(Folder().Read("InData.txt").size(), std::size_t{10} * many.Bytes);
}

} // namespace
} // namespace Quorvane
