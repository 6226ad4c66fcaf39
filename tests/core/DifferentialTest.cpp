// SPDX-License-Identifier: MIT
// Runs the engine and the plain evaluator side by side on random systems.
#include "tests/core/EnginePair.h"
#include "tests/reference/RandomRun.h"

namespace Quorvane {
namespace {

using Reference::Random;
using Reference::RandomRun;
using Reference::SystemLimits;

/// How often a run ended how; a run that never fails, or always, would prove little.
struct Tally {
    int Prepared = 0;
    int Succeeded = 0;
    int FailedToPrepare = 0;
    int FailedToInfer = 0;
};

class DifferentialTest : public CoreTest {
  protected:
    /// Follows random runs, from a first seed on, with so many steps each.
    void Follow(std::uint64_t firstSeed, int runs, int steps, const SystemLimits& limits) {
        for (int i = 0; i < runs && !HasFailure(); ++i) {
            const std::uint64_t seed = firstSeed + static_cast<std::uint64_t>(i);
            SCOPED_TRACE(testing::Message() << "seed " << seed);
            Definition::Reset();
            Random random(seed);
            RandomRun run(random, limits);
            run.Load();
            EnginePair pair;
            Count(pair.PrepareRuleBase(), Ends.Prepared, Ends.FailedToPrepare);
            for (int step = 0; step < steps && !HasFailure(); ++step) {
                SCOPED_TRACE(testing::Message() << "step " << step);
                if (run.Next() == Reference::Step::Prepare) {
                    Count(pair.PrepareRuleBase(), Ends.Prepared, Ends.FailedToPrepare);
                } else {
                    Count(pair.Infer(), Ends.Succeeded, Ends.FailedToInfer);
                }
            }
        }
    }

    Tally Ends;

  private:
    static void Count(const std::optional<RaisedError>& raised, int& succeeded, int& failed) {
        ++(raised ? failed : succeeded);
    }
};

TEST_F(DifferentialTest, SmallSystemsWithManyOddities) {
    Follow(1000, 2000, 20,
           {.Inputs = 3, .Terms = 3, .Outputs = 3, .Rules = 8, .OddNames = 30, .OddOutputs = 30});
    EXPECT_GT(Ends.Prepared, 2000);
    EXPECT_GT(Ends.Succeeded, 15000);
    EXPECT_GT(Ends.FailedToPrepare, 100);
    EXPECT_GT(Ends.FailedToInfer, 5000);
}

TEST_F(DifferentialTest, MiddlingSystems) {
    Follow(2000, 400, 20, {});
    EXPECT_GT(Ends.Succeeded, 4000);
    EXPECT_GT(Ends.FailedToInfer, 500);
}

TEST_F(DifferentialTest, LargeSystemsWithFewRules) {
    Follow(3000, 40, 20, {.Inputs = 20, .Terms = 6, .Outputs = 5, .Rules = 200, .OddOutputs = 5});
    EXPECT_GT(Ends.Succeeded, 200);
}

TEST_F(DifferentialTest, SmallSystemsWithManyRules) {
    Follow(4000, 40, 20, {.Inputs = 3, .Terms = 4, .Outputs = 2, .Rules = 400, .OddOutputs = 5});
    EXPECT_GT(Ends.Succeeded, 200);
}

} // namespace
} // namespace Quorvane
