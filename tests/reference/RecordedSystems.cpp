// SPDX-License-Identifier: MIT
// The systems and cycles of the recorded data.
#include "tests/reference/RecordedSystems.h"

#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "shared/Definition.h"
#include "tests/reference/Evaluator.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Reference {
namespace {

using TestSupport::RecordedCycle;
using TestSupport::RecordedSystem;

constexpr int RandomSystems = 24;
constexpr int CyclesPerSystem = 14;

struct NamedSystem {
    const char* Name;
    const char* Inputs;
    const char* Outputs;
    const char* Rules;
};

// A universe of 0 to 8 with two terms that cross at 4, and three singletons.
#define RAMP "X/8/0/A,0,0,2,6;B,2,6,8,8"
#define STEPS "Y/16/0/P,0;Q,8;R,16"

constexpr NamedSystem NamedSystems[] = {
    {"two rules", RAMP, STEPS, "X>A/Y<P:1|X>B/Y<R:0.5"},
    {"one rule resets and finishes", RAMP, STEPS, "X>A/Y<Q:1"},
    {"no rules", RAMP, STEPS, ""},
    {"all weights zero", RAMP, STEPS, "X>A/Y<P:0|X>B/Y<R:0"},
    {"negative weight", RAMP, STEPS, "X>A/Y<P:1|X>B/Y<R:-0.5"},
    {"weights that cancel", RAMP, STEPS, "X>A/Y<P:1|X>A/Y<R:-1"},
    {"tiny weights", RAMP, STEPS, "X>A/Y<P:1E-320|X>B/Y<R:3E-320"},
    {"no term chosen", RAMP, STEPS, "X>[NONE]/Y<P:1|X>B/Y<[NONE]:1|X>[NONE]/Y<R:0.25"},
    {"output never chosen", RAMP, "Y/16/0/P,0|Z/3/-1/S,1", "X>A/Y<P;Z<[NONE]:1"},
    {"output that the last rule omits", RAMP, "Y/16/0/P,0;Q,8|Z/3/-1/S,1",
     "X>A/Y<P;Z<S:1|X>B/Y<Q:1"},
    {"output that rule 0 omits", RAMP, "Y/16/0/P,0|Z/3/-1/S,1", "X>A/Y<P:1|X>B/Y<P;Z<S:1"},
    {"rule without antecedents", RAMP, STEPS, "/Y<Q:1|X>B/Y<R:1"},
    {"last rule without consequents", RAMP, STEPS, "X>A/Y<R:1|X>B/:1"},
    {"names in other case", RAMP, STEPS, "x>a/Y<p:1|X>A/Y<r:0.5|X>b/Y<Q:2"},
    {"output in other case", RAMP, STEPS, "X>A/y<P:1|X>B/y<R:1"},
    {"output in two cases", RAMP, STEPS, "X>A/Y<P:1|X>B/y<R:1"},
    {"input that the rules do not name", RAMP "|U/1/0/T,0,0,1,1", STEPS, "X>A/Y<P:1|X>B/Y<R:1"},
    {"singletons", "X/8/0/A,2,2,2,2;B,5,5,5,5;C,0.1,0.1,0.1,0.1", STEPS,
     "X>A/Y<P:1|X>B/Y<Q:1|X>C/Y<R:1"},
    {"rectangles", "X/8/0/A,0,0,4,4;B,4,4,8,8", STEPS, "X>A/Y<P:1|X>B/Y<R:1"},
    {"shoulders at the bounds", "X/1/-1/A,-1,-1,-0.5,0;B,0,0.5,1,1", STEPS, "X>A/Y<P:1|X>B/Y<R:1"},
    {"terms beyond the universe", "X/8/0/A,-4,-2,2,6;B,2,6,12,20;C,9,10,11,12", STEPS,
     "X>A/Y<P:1|X>B/Y<Q:1|X>C/Y<R:1"},
    {"bounds the wrong way round", "X/0/8/A,0,0,2,6;B,2,6,8,8", STEPS, "X>A/Y<P:1|X>B/Y<R:1"},
    {"bounds that are equal", "X/3/3/A,0,2,4,6", STEPS, "X>A/Y<R:1"},
    {"points out of order", "X/8/0/A,6,2,4,0;B,2,7,3,8", STEPS, "X>A/Y<P:1|X>B/Y<R:1"},
    {"decimals that round", "X/3.3/-10/A,-10,-3.1,0.1,0.7;B,-0.1,0.3,2.2,3.3",
     "Y/0.3/0.1/P,0.1;Q,0.2", "X>A/Y<P:0.7|X>B/Y<Q:0.1"},
    {"numbers near the limits", "X/1E308/-7E307/A,-7E307,-1E300,1E300,1E308",
     "Y/1E-300/0/P,1E-300;Q,5E-324", "X>A/Y<P:1|X>[NONE]/Y<Q:1"},
    {"sum beyond the range", RAMP, "Y/1E308/0/P,1E308", "X>A/Y<P:1|X>B/Y<P:1|X>[NONE]/Y<P:1"},
    {"flank wider than the range", "X/1E308/-1E308/A,-1E308,-1E308,-9E307,1.5E308", STEPS,
     "X>A/Y<P:1"},
    {"term that the model lacks", RAMP, STEPS, "X>A/Y<P:1|X>Z/Y<R:1"},
    {"controller",
     "Error/1/-1/Neg,-1,-1,-0.5,0;Zero,-0.5,0,0,0.5;Pos,0,0.5,1,1|Rate/1/-1/"
     "Neg,-1,-1,-0.5,0;Zero,-0.5,0,0,0.5;Pos,0,0.5,1,1",
     "Action/1/-1/Down,-1;Less,-0.5;Hold,0;More,0.5;Up,1",
     "Error>Neg;Rate>Neg/Action<Down:1|Error>Neg;Rate>Zero/Action<Less:0.8|Error>Neg;Rate>Pos/"
     "Action<Hold:1|"
     "Error>Zero;Rate>Neg/Action<Less:1|Error>Zero;Rate>Zero/Action<Hold:0.9|Error>Zero;Rate>Pos/"
     "Action<More:1|"
     "Error>Pos;Rate>Neg/Action<Hold:1|Error>Pos;Rate>Zero/Action<More:0.7|Error>Pos;Rate>Pos/"
     "Action<Up:1"},
};

#undef RAMP
#undef STEPS

std::string Ascii(TextView text) {
    return {text.begin(), text.end()};
}

std::optional<double> NumberIn(const Value& value) {
    const double* const number = std::get_if<double>(&value);
    return number ? std::optional(*number) : std::nullopt;
}

/// The outputs as a host sees them after a cycle: those of the evaluator, or their defaults.
std::vector<std::optional<double>> OutputsAfter(const Evaluator& evaluator, bool failed) {
    const Definition::ProcessState& state = Definition::State();
    std::vector<std::optional<double>> outputs;
    for (const auto& [name, variable] : *state.OutputVariables) {
        const Value* const output = evaluator.Prepared.OutputValues.Find(name);
        outputs.push_back(!output  ? std::nullopt
                          : failed ? NumberIn(state.DefaultOutputValues->Get(name))
                                   : NumberIn(*output));
    }
    return outputs;
}

RecordedCycle RecordCycle(Evaluator& evaluator, std::vector<std::optional<double>> inputs) {
    const Definition::ProcessState& state = Definition::State();
    std::size_t index = 0;
    for (const auto& [name, variable] : *state.InputVariables) {
        const auto& input = inputs[index++];
        state.InputValues->Put(name, input ? Value(*input) : Value());
    }
    RecordedCycle cycle{std::move(inputs), 0, {}};
    try {
        evaluator.Infer();
    } catch (const FisError&) {
        cycle.FailedMessage = evaluator.CurrentErrorId;
    }
    cycle.Outputs = OutputsAfter(evaluator, cycle.FailedMessage != 0);
    return cycle;
}

/// The first cycles set every input to its first edges, the lower and the upper bound, and then the
/// others in turn; the rest are random. Now and then an input keeps its value or has none.
std::vector<std::optional<double>> MakeInputs(Random& random, int cycle,
                                              const std::vector<std::optional<double>>& former) {
    std::vector<std::optional<double>> inputs;
    for (const auto& [name, variable] : *Definition::State().InputVariables) {
        const std::vector<double> edges = EdgesOf(variable);
        const auto index = static_cast<std::size_t>(cycle);
        if (index < edges.size() && cycle < CyclesPerSystem / 2) {
            inputs.emplace_back(edges[index]);
        } else if (!former.empty() && random.Percent(20)) {
            inputs.push_back(former[inputs.size()]);
        } else if (random.Percent(3)) {
            inputs.emplace_back();
        } else {
            inputs.emplace_back(MakeNumber(random, edges));
        }
    }
    return inputs;
}

RecordedSystem Record(RecordedSystem system, Random& random) {
    Definition::ProcessState& state = Definition::State();
    state.InputsText = Main::TransformText(Widen(system.Inputs), true);
    state.OutputsText = Main::TransformText(Widen(system.Outputs), true);
    state.RulesText = Main::TransformText(Widen(system.Rules), true);
    Main::ParseDefinition();
    Evaluator evaluator;
    evaluator.PrepareRuleBase();
    std::vector<std::optional<double>> inputs;
    for (int cycle = 0; cycle < CyclesPerSystem; ++cycle) {
        inputs = MakeInputs(random, cycle, inputs);
        system.Cycles.push_back(RecordCycle(evaluator, inputs));
    }
    return system;
}

} // namespace

std::vector<RecordedSystem> RecordSystems() {
    Definition::Reset();
    Random random(20260101);
    std::vector<RecordedSystem> systems;
    for (const NamedSystem& named : NamedSystems) {
        systems.push_back(
            Record({named.Name, named.Inputs, named.Outputs, named.Rules, {}}, random));
    }
    const SystemLimits limits{.Inputs = 5, .Rules = 30, .BadRules = 0};
    for (int number = 1; number <= RandomSystems; ++number) {
        const SystemTexts texts = MakeSystem(random, limits);
        systems.push_back(Record({"random " + std::to_string(number),
                                  Ascii(texts.Inputs),
                                  Ascii(texts.Outputs),
                                  Ascii(texts.Rules),
                                  {}},
                                 random));
    }
    Definition::Reset();
    return systems;
}

} // namespace Quorvane::Reference
