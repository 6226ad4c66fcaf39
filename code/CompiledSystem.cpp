// SPDX-License-Identifier: MIT
// A system as the tables that generated code consists of.
#include "code/CompiledSystem.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "host/formfile/Utf8.h"
#include "system/CycleOutputs.h"

namespace Quorvane::Code {
namespace {

class Compiler {
  public:
    explicit Compiler(const System::FuzzySystem& system)
        : system_(system), outputs_(System::CycleOutputs(system)) {}

    CompiledSystem Run() {
        AddVariables();
        std::size_t longest = 1;
        for (const System::Rule& rule : system_.Rules) {
            AddRule(rule);
            longest = std::max(longest, compiled_.Rules.back().When.size());
        }
        for (CompiledRule& rule : compiled_.Rules) {
            rule.When.resize(longest);
        }
        return std::move(compiled_);
    }

  private:
    void AddVariables() {
        if (outputs_.empty()) {
            throw CodeError("the system has no rule that names an output");
        }
        if (const auto failing = System::FirstFailingClause(system_)) {
            throw CodeError(
                "rule " + std::to_string(failing->Rule + 1) +
                " names an output that rule 1 does not name, so that every cycle fails");
        }
        for (const System::InputVariable& input : system_.Inputs) {
            compiled_.Inputs.push_back({input.Name, input.Lower, input.Upper});
        }
        for (const System::CycleOutput& output : outputs_) {
            const System::OutputVariable& variable = system_.Outputs[output.Variable];
            if (!output.Default) {
                throw CodeError("rule 1 writes the output \"" + Host::EncodeUtf8(variable.Name) +
                                "\" as \"" + Host::EncodeUtf8(output.Name) +
                                "\", so that it has no value where no rule fires");
            }
            compiled_.Outputs.push_back(
                {variable.Name, *output.Default, variable.Lower, variable.Upper, output.IsSet});
        }
    }

    void AddRule(const System::Rule& rule) {
        CompiledRule& added = compiled_.Rules.emplace_back();
        added.Weight = rule.Weight;
        for (const System::Clause& clause : rule.Antecedents) {
            if (clause.Term) {
                added.When.push_back(IndexOfTerm(clause.Variable, *clause.Term));
            }
        }
        added.Then.resize(outputs_.size());
        for (const System::Clause& clause : rule.Consequents) {
            const auto place = System::PlaceOf(system_, clause, outputs_);
            if (clause.Term && place) {
                added.Then[*place] = IndexOfPosition(static_cast<std::uint32_t>(*place),
                                                     clause.Variable, *clause.Term);
            }
        }
    }

    std::uint32_t IndexOfTerm(std::uint32_t input, std::uint32_t term) {
        const auto next = static_cast<std::uint32_t>(compiled_.Terms.size() + 1);
        const auto [place, isNew] = terms_.try_emplace({input, term}, next);
        if (isNew) {
            compiled_.Terms.push_back({input, term, system_.Inputs[input].Terms[term].Points});
        }
        return place->second;
    }

    std::uint32_t IndexOfPosition(std::uint32_t output, std::uint32_t variable,
                                  std::uint32_t term) {
        const auto next = static_cast<std::uint32_t>(compiled_.Positions.size() + 1);
        const auto [place, isNew] = positions_.try_emplace({output, term}, next);
        if (isNew) {
            compiled_.Positions.push_back(
                {output, term, system_.Outputs[variable].Terms[term].Position});
        }
        return place->second;
    }

    const System::FuzzySystem& system_;
    std::vector<System::CycleOutput> outputs_;
    CompiledSystem compiled_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> terms_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> positions_;
};

/// Infinite or not a number on a flank that is too wide.
double DegreeOf(const CompiledTerm& term, const CompiledInput& input, double x) {
    const auto [p1, p2, p3, p4] = term.Points;
    if (x < input.Lower || x > input.Upper) {
        return 0;
    }
    if (p2 <= x && x <= p3) {
        return 1;
    }
    if (p1 < x && x < p4) {
        const double height = x < p2 ? x - p1 : p4 - x;
        const double width = x < p2 ? p2 - p1 : p4 - p3;
        return std::isfinite(width) ? height / width : width;
    }
    return 0;
}

} // namespace

CompiledSystem Compile(const System::FuzzySystem& system) {
    return Compiler(system).Run();
}

bool Run(const CompiledSystem& system, std::span<const double> inputs, std::span<double> outputs) {
    std::vector<double> degrees{1};
    bool failed = false;
    for (const CompiledTerm& term : system.Terms) {
        degrees.push_back(DegreeOf(term, system.Inputs[term.Input], inputs[term.Input]));
        failed = failed || !std::isfinite(degrees.back());
    }
    std::vector<double> numerators(outputs.size());
    std::vector<double> denominators(outputs.size());
    for (const CompiledRule& rule : system.Rules) {
        double strength = rule.Weight;
        for (const std::uint32_t term : rule.When) {
            strength *= degrees[term];
        }
        for (std::size_t output = 0; output < outputs.size(); ++output) {
            if (rule.Then[output] != 0) {
                numerators[output] += strength * system.Positions[rule.Then[output] - 1].Value;
                denominators[output] += strength;
            }
        }
    }
    for (std::size_t output = 0; output < outputs.size(); ++output) {
        const bool isSet = system.Outputs[output].IsSet && denominators[output] != 0;
        outputs[output] =
            isSet ? numerators[output] / denominators[output] : system.Outputs[output].Default;
        // The sums of an output that no cycle sets count, too.
        failed = failed || !std::isfinite(numerators[output]) ||
                 !std::isfinite(denominators[output]) || !std::isfinite(outputs[output]);
    }
    for (std::size_t output = 0; failed && output < outputs.size(); ++output) {
        outputs[output] = system.Outputs[output].Default;
    }
    return !failed;
}

} // namespace Quorvane::Code
