// SPDX-License-Identifier: MIT
// One inference cycle.
#include "engine/Infer.h"

#include <cmath>

#include "engine/EngineRoutine.h"
#include "engine/Fuzzify.h"
#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

/// Raises Overflow for a result beyond the range of a Double.
double Finite(double result) {
    if (!std::isfinite(result)) {
        throw FisError(RuntimeError::Overflow);
    }
    return result;
}

/// The output that a consequent names. Raises MissingKey for one that rule 0 does not name.
UsedOutput& OutputOf(RuleTables& tables, const Consequent& consequent) {
    if (consequent.Output == Consequent::UnknownOutput) {
        throw FisError(RuntimeError::MissingKey);
    }
    return tables.UsedOutputs[consequent.Output];
}

void FireRule(RuleTables& tables, std::size_t rule) {
    double activation = tables.RuleWeights[rule];
    for (const std::uint32_t degree : tables.AntecedentsOf(rule)) {
        activation *= tables.Degrees[degree];
    }
    for (const Consequent& consequent : tables.ConsequentsOf(rule)) {
        if (consequent.Point) {
            UsedOutput& output = OutputOf(tables, consequent);
            output.Numerator += activation * *consequent.Point;
            output.Denominator += activation;
        }
    }
}

void SetOutputs(RuleTables& tables) {
    // Sums that have left the range of a Double never come back into it, so one look is enough.
    for (const UsedOutput& output : tables.UsedOutputs) {
        Finite(output.Numerator);
        Finite(output.Denominator);
    }
    const std::shared_ptr<OwnValueDictionary> values = Definition::State().OutputValues;
    const std::shared_ptr<ValueDictionary> defaults = Definition::State().DefaultOutputValues;
    for (const Consequent& consequent : tables.ConsequentsOf(tables.RuleCount() - 1)) {
        const UsedOutput& output = OutputOf(tables, consequent);
        if (output.Denominator != 0) {
            Definition::Require(values).Put(output.Name,
                                            Finite(output.Numerator / output.Denominator));
        } else {
            Definition::Require(values).Put(output.Name,
                                            Definition::Require(defaults).Get(output.Name));
        }
    }
}

} // namespace

void Infer() {
    RunRoutine(Message::InvalidInference, [] {
        // Held, as reading a host's dictionary may run code that prepares the rule base anew.
        const std::shared_ptr<RuleTables> held = Definition::State().Tables;
        if (!held || held->RuleCount() == 0) {
            return;
        }
        RuleTables& tables = *held;
        Fuzzify(tables);
        for (UsedOutput& output : tables.UsedOutputs) {
            output.Numerator = 0;
            output.Denominator = 0;
        }
        for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
            FireRule(tables, rule);
        }
        SetOutputs(tables);
    });
}

} // namespace Quorvane::RunTime
