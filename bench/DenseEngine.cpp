// SPDX-License-Identifier: MIT
// The plain fast way of inference, to compare with.
#include "bench/DenseEngine.h"

#include <unordered_map>

#include "shared/Definition.h"
#include "shared/Markers.h"

namespace Quorvane::Bench {

DenseEngine::DenseEngine(const Reference::Tables& tables) {
    const Definition::ProcessState& state = Definition::State();
    const auto& values = dynamic_cast<const OwnValueDictionary&>(*state.InputValues);
    std::unordered_map<Text, std::unordered_map<Text, std::uint32_t>> termIndices;
    for (const auto& [name, used] : tables.UsedTerms) {
        const LinguisticVariable& variable = state.InputVariables->At(name);
        for (const auto& [term, degree] : used) {
            if (term != NoneMarker) {
                const auto [p1, p2, p3, p4] = variable.MF.At(term).Points;
                termIndices[name][term] = static_cast<std::uint32_t>(terms_.size());
                terms_.push_back({p1, p2, p3, p4});
            }
        }
        inputs_.push_back({&values.Items.At(name).Content, variable.LBound, variable.UBound,
                           static_cast<std::uint32_t>(terms_.size())});
    }
    degrees_.resize(terms_.size());
    std::unordered_map<Text, std::uint32_t> outputIndices;
    for (const auto& [name, value] : tables.OutputValues) {
        outputIndices[name] = static_cast<std::uint32_t>(outputs_.size());
        defaults_.push_back(ToNumber(value));
        outputs_.push_back(value);
    }
    sums_.resize(outputs_.size());
    for (std::size_t rule = 0; rule < tables.RuleWeights.size(); ++rule) {
        for (const auto& [input, term] : tables.Antecedents[rule]) {
            if (term != NoneMarker) {
                antecedents_.push_back(termIndices[input][term]);
            }
        }
        for (const auto& [output, point] : tables.Consequents[rule]) {
            if (const double* const position = std::get_if<double>(&point)) {
                consequents_.push_back({outputIndices[output], *position});
            }
        }
        rules_.push_back({tables.RuleWeights[rule], static_cast<std::uint32_t>(antecedents_.size()),
                          static_cast<std::uint32_t>(consequents_.size())});
    }
}

void DenseEngine::Infer() {
    Fuzzify();
    FireRules();
    SetOutputs();
}

void DenseEngine::Fuzzify() {
    std::uint32_t term = 0;
    for (const Input& input : inputs_) {
        const double x = std::get<double>(*input.Current);
        const bool isInside = x >= input.Lower && x <= input.Upper;
        for (; term < input.EndTerm; ++term) {
            const auto [p1, p2, p3, p4] = terms_[term];
            double degree = 0;
            if (isInside) {
                if (p2 <= x && x <= p3) {
                    degree = 1;
                } else if (p1 < x && x < p4) {
                    degree = x < p2 ? (x - p1) / (p2 - p1) : (p4 - x) / (p4 - p3);
                }
            }
            degrees_[term] = degree;
        }
    }
}

void DenseEngine::FireRules() {
    for (Sums& sums : sums_) {
        sums = {0, 0};
    }
    const std::uint32_t* antecedent = antecedents_.data();
    const Consequent* consequent = consequents_.data();
    for (const Rule& rule : rules_) {
        double activation = rule.Weight;
        for (const auto* const end = antecedents_.data() + rule.EndAntecedent; antecedent != end;
             ++antecedent) {
            activation *= degrees_[*antecedent];
        }
        for (const auto* const end = consequents_.data() + rule.EndConsequent; consequent != end;
             ++consequent) {
            Sums& sums = sums_[consequent->Output];
            sums.Numerator += activation * consequent->Point;
            sums.Denominator += activation;
        }
    }
}

void DenseEngine::SetOutputs() {
    for (std::size_t output = 0; output < outputs_.size(); ++output) {
        const auto [numerator, denominator] = sums_[output];
        outputs_[output] = denominator != 0 ? numerator / denominator : defaults_[output];
    }
}

} // namespace Quorvane::Bench
