// SPDX-License-Identifier: MIT
// Replays the recorded cycles: the same bits on every platform.
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/RecordedSystems.h"
#include "tests/support/CycleFile.h"

namespace Quorvane {
namespace {

using TestSupport::RecordedCycle;
using TestSupport::RecordedSystem;

class RecordedCycles : public CoreTest {};

Value ItemOf(const std::optional<double>& recorded) {
    return recorded ? Value(*recorded) : Value();
}

/// The message of the routine that fails when a cycle runs on these inputs; 0 for none.
int RunCycle(const RecordedCycle& cycle) {
    const Definition::ProcessState& state = Definition::State();
    std::size_t index = 0;
    for (const auto& [name, variable] : *state.InputVariables) {
        state.InputValues->Put(name, ItemOf(cycle.Inputs.at(index++)));
    }
    try {
        RunTime::Infer();
    } catch (const FisError& error) {
        EXPECT_EQ(error.Number, InvalidInference.Number);
        return state.CurrentErrorId;
    }
    return 0;
}

void ExpectOutputs(const RecordedCycle& cycle) {
    const Definition::ProcessState& state = Definition::State();
    std::size_t index = 0;
    for (const auto& [name, variable] : *state.OutputVariables) {
        SCOPED_TRACE(Narrow(name));
        const Value expected = ItemOf(cycle.Outputs.at(index++));
        if (!state.OutputValues->Items.Exists(name)) {
            EXPECT_TRUE(IsEmpty(expected));
        } else if (cycle.FailedMessage == 0) {
            EXPECT_TRUE(SameValue(expected, state.OutputValues->Get(name)));
        } else {
            EXPECT_TRUE(SameValue(expected, state.DefaultOutputValues->Get(name)));
        }
    }
}

TEST_F(RecordedCycles, GiveTheRecordedBits) {
    std::size_t cycles = 0;
    for (const RecordedSystem& system : TestSupport::ReadCycles(TestSupport::CycleFileText())) {
        SCOPED_TRACE(system.Name);
        Parse(Widen(system.Inputs), Widen(system.Outputs), Widen(system.Rules));
        RunTime::PrepareRuleBase();
        for (const RecordedCycle& cycle : system.Cycles) {
            SCOPED_TRACE(testing::Message() << "cycle " << ++cycles);
            EXPECT_EQ(RunCycle(cycle), cycle.FailedMessage);
            ExpectOutputs(cycle);
        }
    }
    EXPECT_GE(cycles, 700U);
}

TEST_F(RecordedCycles, AreWhatThePlainEvaluatorRecordsHere) {
    std::string recorded;
    for (const RecordedSystem& system : Reference::RecordSystems()) {
        recorded += '\n' + TestSupport::WriteSystem(system);
    }
    std::string_view file = TestSupport::CycleFileText();
    file.remove_prefix(file.find("\n\nsystem") + 1);
    EXPECT_TRUE(file == recorded) << "run record_cycles to record the cycles anew";
}

} // namespace
} // namespace Quorvane
