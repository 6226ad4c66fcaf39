// SPDX-License-Identifier: MIT
// What a system answers, computed from the few rules that fire.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "check/RuleSet.h"
#include "check/RuleTable.h"

namespace Quorvane::Check {

/// Computes outputs for many points of the same rules, each within the universes of all inputs. The
/// last bits can differ from those of the engine where a rule writes its conditions in another
/// order than that of the inputs.
class Response {
  public:
    explicit Response(const RuleTable& rules);

    /// The values of all outputs (by their places in RuleTable::Outputs) at a point. An output for
    /// which no rule fires has its default; none where that is empty or arithmetic overflows.
    const std::vector<std::optional<double>>& At(std::span<const double> point);

  private:
    void Fire(std::size_t rule);

    struct Sum {
        double Numerator = 0;
        double Denominator = 0;
    };

    const RuleTable& rules_;
    /// For each input, the rules that can fire on each of its pieces.
    std::vector<std::vector<RuleSet>> sets_;
    RuleSet firing_;
    RuleSet left_;
    /// For each input, the degrees of its conditions.
    std::vector<std::vector<double>> degrees_;
    std::vector<Sum> sums_;
    std::vector<std::optional<double>> values_;
};

} // namespace Quorvane::Check
