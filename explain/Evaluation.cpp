// SPDX-License-Identifier: MIT
// One inference cycle over a system as a value.
#include "explain/Evaluation.h"

#include <algorithm>
#include <set>

namespace Quorvane::Explain {
namespace {

using System::Clause;
using System::FuzzySystem;
using System::Rule;

constexpr std::int32_t InvalidInputSignal = 79;
constexpr std::int32_t InvalidInputVariable = 80;

class Cycle {
  public:
    Cycle(const FuzzySystem& system, const Reading& reading) : system_(system) {
        for (std::size_t i = 0; i < system.Inputs.size(); ++i) {
            result_.Inputs.push_back({reading[i], false, {}});
            SetDegrees(i);
        }
        std::vector<System::CycleOutput> outputs = System::CycleOutputs(system);
        for (const System::CycleOutput& output : outputs) {
            result_.Outputs.push_back({output, {}, {}, output.Default});
        }
        outputs_ = std::move(outputs);
    }

    Evaluation Run() {
        Fuzzify();
        if (!result_.Fault) {
            FireRules();
        }
        SetOutputs();
        return std::move(result_);
    }

  private:
    void SetDegrees(std::size_t index) {
        const System::InputVariable& input = system_.Inputs[index];
        InputState& state = result_.Inputs[index];
        for (const System::InputTerm& term : input.Terms) {
            state.Degrees.push_back(DegreeIn(input, term, state.Value));
        }
    }

    static std::optional<double> DegreeIn(const System::InputVariable& input,
                                          const System::InputTerm& term,
                                          const std::optional<double>& value) {
        try {
            return value ? std::optional(Degree(term.Points, input.Lower, input.Upper, *value))
                         : std::nullopt;
        } catch (const FisError&) {
            return std::nullopt;
        }
    }

    /// The inputs under the names that rules write, in the order in which these come up.
    std::vector<Clause> UsedInputs() {
        std::set<TextView> names;
        std::vector<Clause> used;
        for (const Rule& rule : system_.Rules) {
            for (const Clause& clause : rule.Antecedents) {
                result_.Inputs[clause.Variable].IsUsed = true;
                if (names.insert(NameIn(system_.Inputs, clause)).second) {
                    used.push_back(clause);
                }
            }
        }
        return used;
    }

    /// Finds the first used input that fails the cycle.
    void Fuzzify() {
        messageId_ = InvalidInputSignal;
        for (const Clause& used : UsedInputs()) {
            if (!result_.Inputs[used.Variable].Value) {
                Fail({FailureKind::NoValue, messageId_, used.Variable, {}, {}});
                return;
            }
            messageId_ = InvalidInputVariable;
            if (const auto term = FirstFailingTerm(NameIn(system_.Inputs, used), used.Variable)) {
                Fail({FailureKind::FlankTooWide, messageId_, used.Variable, term, {}});
                return;
            }
        }
    }

    /// A term without a degree that rules use under a name of the input.
    std::optional<std::uint32_t> FirstFailingTerm(TextView name, std::uint32_t input) const {
        const auto& degrees = result_.Inputs[input].Degrees;
        if (std::ranges::all_of(degrees, [](const auto& degree) { return degree.has_value(); })) {
            return std::nullopt;
        }
        for (const Rule& rule : system_.Rules) {
            for (const Clause& clause : rule.Antecedents) {
                if (clause.Variable == input && clause.Term && !degrees[*clause.Term] &&
                    NameIn(system_.Inputs, clause) == name) {
                    return clause.Term;
                }
            }
        }
        return std::nullopt;
    }

    void FireRules() {
        const auto failing = System::FirstFailingClause(system_);
        for (std::size_t rule = 0; rule < system_.Rules.size() && !result_.Fault; ++rule) {
            try {
                result_.Strengths.push_back(StrengthOf(system_.Rules[rule]));
                AddConsequents(rule, failing);
            } catch (const FisError&) {
                Fail({FailureKind::Overflow, messageId_, {}, {}, rule});
            }
        }
    }

    double StrengthOf(const Rule& rule) const {
        double strength = rule.Weight;
        for (const Clause& clause : rule.Antecedents) {
            if (clause.Term) {
                const auto& degree = result_.Inputs[clause.Variable].Degrees[*clause.Term];
                strength = Finite(strength * *degree);
            }
        }
        return strength;
    }

    void AddConsequents(std::size_t rule, const std::optional<System::FailingClause>& failing) {
        const auto& consequents = system_.Rules[rule].Consequents;
        for (std::size_t i = 0; i < consequents.size(); ++i) {
            if (failing == System::FailingClause{rule, i}) {
                Fail({FailureKind::OutputNotInFirstRule, messageId_, {}, {}, rule});
                return;
            }
            if (consequents[i].Term) {
                AddConsequent(rule, consequents[i]);
            }
        }
    }

    void AddConsequent(std::size_t rule, const Clause& clause) {
        OutputState& output = result_.Outputs[*PlaceOf(system_, clause, outputs_)];
        const double position = system_.Outputs[clause.Variable].Terms[*clause.Term].Position;
        const double strength = result_.Strengths[rule];
        output.Sum.Add(strength, position);
        output.Cause = Cause::RulesFire;
        if (strength != 0) {
            output.Contributions.push_back({rule, *clause.Term, position, strength});
        }
    }

    void SetOutputs() {
        for (OutputState& output : result_.Outputs) {
            SetOutput(output);
        }
        if (result_.Fault) {
            for (OutputState& output : result_.Outputs) {
                output.Value = output.Output.Default;
                output.Cause = Cause::CycleFailed;
            }
        }
    }

    void SetOutput(OutputState& output) {
        const bool isChosen = output.Cause == Cause::RulesFire;
        std::optional<double> average;
        try {
            average = output.Sum.Average();
        } catch (const FisError&) {
            if (output.Output.IsSet && !result_.Fault) {
                Fail({FailureKind::Overflow, messageId_, {}, {}, {}});
            }
        }
        if (!output.Output.IsSet) {
            output.Cause = Cause::NotInLastRule;
        } else if (!average) {
            output.Cause = !isChosen                      ? Cause::NoRuleChoosesTerm
                           : output.Contributions.empty() ? Cause::NoRuleFires
                                                          : Cause::StrengthsCancel;
        } else {
            output.Value = average;
            output.Cause = Cause::RulesFire;
        }
    }

    void Fail(const Failure& failure) { result_.Fault = failure; }

    const FuzzySystem& system_;
    std::vector<System::CycleOutput> outputs_;
    Evaluation result_;
    std::int32_t messageId_ = 0;
};

} // namespace

Evaluation Evaluate(const FuzzySystem& system, const Reading& reading) {
    return Cycle(system, reading).Run();
}

} // namespace Quorvane::Explain
