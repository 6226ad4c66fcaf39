// SPDX-License-Identifier: MIT
// What the engine makes of a rule base: flat tables in which names have become indices.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::RunTime {

/// An input that some rule names, with the terms that rules use of it ("[NONE]" included).
struct UsedInput {
    Text Name;
    /// The value last fuzzified; absent ("[EMPTY]") until one has been.
    std::optional<double> LastInput;
    std::vector<Text> Terms;
    /// Where the degree of each term stands in RuleTables::Degrees.
    std::vector<std::uint32_t> DegreeIndices;
};

/// An output that rule 0 names, with its running sums.
struct UsedOutput {
    Text Name;
    double Numerator = 0;
    double Denominator = 0;
};

/// One consequent of a rule.
struct Consequent {
    /// The output of an index below the number of used outputs.
    static constexpr auto UnknownOutput = std::numeric_limits<std::uint32_t>::max();

    /// The index of the output, or UnknownOutput for one that rule 0 does not name.
    std::uint32_t Output = UnknownOutput;
    /// The position of the singleton; absent for "[NONE]".
    std::optional<double> Point;
};

/// The prepared rule base. Names compare by exact case.
struct RuleTables {
    std::vector<UsedInput> UsedInputs;
    /// The degrees of membership of all used terms; 1 until their input is fuzzified.
    std::vector<double> Degrees;
    std::vector<UsedOutput> UsedOutputs;

    std::vector<double> RuleWeights;
    /// The antecedents of rule i, as indices into Degrees in the order of its text, stand from
    /// AntecedentEnds[i - 1] (0 for rule 0) up to AntecedentEnds[i]; the consequents alike.
    std::vector<std::uint32_t> Antecedents;
    std::vector<std::size_t> AntecedentEnds;
    std::vector<Consequent> Consequents;
    std::vector<std::size_t> ConsequentEnds;

    std::size_t RuleCount() const { return RuleWeights.size(); }

    std::span<const std::uint32_t> AntecedentsOf(std::size_t rule) const {
        return Slice<std::uint32_t>(Antecedents, AntecedentEnds, rule);
    }
    std::span<const Consequent> ConsequentsOf(std::size_t rule) const {
        return Slice<Consequent>(Consequents, ConsequentEnds, rule);
    }

  private:
    template <class T>
    static std::span<const T> Slice(const std::vector<T>& all, const std::vector<std::size_t>& ends,
                                    std::size_t rule) {
        const std::size_t first = rule == 0 ? 0 : ends[rule - 1];
        return std::span(all).subspan(first, ends[rule] - first);
    }
};

} // namespace Quorvane::RunTime
