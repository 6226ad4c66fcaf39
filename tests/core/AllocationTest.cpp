// SPDX-License-Identifier: MIT
// Counts what a cycle allocates once it has run before: nothing.
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "tests/core/Allocations.h"
#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

using Definition::State;

/// Rules for every combination of the terms of some inputs.
Text FullRules(std::size_t inputs, std::size_t terms) {
    std::vector<std::size_t> chosen(inputs);
    Text rules;
    for (;;) {
        rules += rules.empty() ? u"" : u"|";
        for (std::size_t input = 0; input < inputs; ++input) {
            rules += (input == 0 ? u"i" : u";i") + Widen(std::to_string(input)) + u">t" +
                     Widen(std::to_string(chosen[input]));
        }
        rules += u"/Y<P:1";
        std::size_t input = inputs;
        while (input > 0 && ++chosen[input - 1] == terms) {
            chosen[--input] = 0;
        }
        if (input == 0) {
            return rules;
        }
    }
}

/// A rule for each term of each input, and nothing said of the others.
Text SparseRules(std::size_t inputs, std::size_t terms) {
    Text rules;
    for (std::size_t input = 0; input < inputs; ++input) {
        for (std::size_t term = 0; term < terms; ++term) {
            rules += (rules.empty() ? u"i" : u"|i") + Widen(std::to_string(input)) + u">t" +
                     Widen(std::to_string(term)) + u"/Y<P:1";
        }
    }
    return rules;
}

Text Inputs(std::size_t inputs, std::size_t terms) {
    Text text;
    for (std::size_t input = 0; input < inputs; ++input) {
        text += (input == 0 ? u"i" : u"|i") + Widen(std::to_string(input)) + u"/8/0/";
        for (std::size_t term = 0; term < terms; ++term) {
            text += (term == 0 ? u"t" : u";t") + Widen(std::to_string(term)) + u",0,2,4,7";
        }
    }
    return text;
}

struct System {
    const char* Name;
    std::size_t Inputs;
    std::size_t Terms;
    Text (*Rules)(std::size_t, std::size_t);
};

class AllocationTest : public CoreTest, public testing::WithParamInterface<System> {};

TEST_P(AllocationTest, NoneInACycleThatHasRunBefore) {
    const System& system = GetParam();
    Parse(Inputs(system.Inputs, system.Terms), u"Y/9/1/P,3;Q,4",
          system.Rules(system.Inputs, system.Terms));
    RunTime::PrepareRuleBase();
    const auto infer = [&](double value) {
        auto& values = dynamic_cast<OwnValueDictionary&>(*State().InputValues);
        for (auto& [name, item] : values.Items) {
            item.Content = value;
        }
        const std::size_t before = Allocations::Made();
        RunTime::Infer();
        return Allocations::Made() - before;
    };
    infer(1);
    // A flank, the top, a point of the shape, the same again, and outside, where no rule fires.
    for (const double value : {1.5, 3.0, 4.0, 4.0, 5.5, 9.0, -1.0, 0.5}) {
        EXPECT_EQ(infer(value), 0U) << value;
    }
    EXPECT_GT(Allocations::Made(), 0U) << "what is counted is what is used";
}

INSTANTIATE_TEST_SUITE_P(, AllocationTest,
                         testing::Values(System{"AFewRules", 2, 3, FullRules},
                                         System{"AFullGrid", 4, 5, FullRules},
                                         System{"SparseRules", 20, 5, SparseRules}),
                         [](const auto& run) { return std::string(run.param.Name); });

} // namespace
} // namespace Quorvane
