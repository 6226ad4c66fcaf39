// SPDX-License-Identifier: MIT
// The plain fast way of inference, to compare with: flat tables, every input, every rule.
#pragma once

#include <cstdint>
#include <vector>

#include "tests/reference/Evaluator.h"

namespace Quorvane::Bench {

/// An engine in which all names are indices and all data lie side by side, and that on every cycle
/// fuzzifies every input and fires every rule. It reads the inputs and writes the outputs where the
/// product does, in values of the process and values of its own, but takes the model as fixed: it
/// never looks a name up again. Antecedents and consequents of "[NONE]" are left out of its rules.
class DenseEngine {
  public:
    /// Compiles the tables of a prepared evaluator and the model and values of the process, whose
    /// addresses it keeps.
    explicit DenseEngine(const Reference::Tables& tables);

    /// One cycle. The inputs must be numbers.
    void Infer();

    /// The outputs in the order in which rule 0 names them.
    const std::vector<Value>& Outputs() const { return outputs_; }

  private:
    struct Term {
        double P1, P2, P3, P4;
    };
    struct Input {
        const Value* Current;
        double Lower;
        double Upper;
        std::uint32_t EndTerm;
    };
    struct Rule {
        double Weight;
        std::uint32_t EndAntecedent;
        std::uint32_t EndConsequent;
    };
    struct Consequent {
        std::uint32_t Output;
        double Point;
    };
    struct Sums {
        double Numerator;
        double Denominator;
    };

    void Fuzzify();
    void FireRules();
    void SetOutputs();

    std::vector<Input> inputs_;
    std::vector<Term> terms_;
    std::vector<double> degrees_;
    std::vector<Rule> rules_;
    std::vector<std::uint32_t> antecedents_;
    std::vector<Consequent> consequents_;
    std::vector<Sums> sums_;
    std::vector<double> defaults_;
    std::vector<Value> outputs_;
};

} // namespace Quorvane::Bench
