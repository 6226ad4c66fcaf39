// SPDX-License-Identifier: MIT
// Which part of their universes outputs reach.
#include "check/FindReach.h"

#include <algorithm>
#include <cmath>

#include "check/Draw.h"
#include "check/RangeSearch.h"

namespace Quorvane::Check {
namespace {

/// Shares of the output's universe that round-off may take.
constexpr double Tolerance = 1e-9;

/// The middle of where a condition holds most.
double CenterOf(const Axis& axis, std::uint32_t condition) {
    const Piece* best = nullptr;
    bool isBestFull = false;
    for (const Piece& piece : axis.Pieces) {
        const bool isFull = std::ranges::binary_search(piece.Full, condition);
        if (std::ranges::binary_search(piece.Active, condition) &&
            (!best || (isFull && !isBestFull))) {
            best = &piece;
            isBestFull = isFull;
        }
    }
    return best ? MiddleOf(best->Values) : axis.Lower;
}

/// Looks for the highest value of one output, or of its negative.
class ReachOfOutput {
  public:
    ReachOfOutput(const RuleTable& rules, Response& response, std::size_t output, double sign)
        : rules_(rules), response_(response), output_(output), sign_(sign) {
        for (std::uint32_t rule = 0; rule < rules.Rules(); ++rule) {
            if (rules.CanFire(rule) && rules.PositionOf(rule, output)) {
                firing_.push_back(rule);
                areWeightsPositive_ = areWeightsPositive_ && rules.WeightOf(rule) > 0;
            }
        }
    }

    /// The highest value up to a limit, at which the search ends.
    Extreme Run(double limit, const CheckLimits& limits) {
        limit_ = limit;
        TryCentersOfHighestRules();
        if (IsLimitReached()) {
            return best_;
        }
        if (areWeightsPositive_) {
            best_ = RangeSearch(rules_, output_, sign_, limits.Steps).Run(firing_, best_, limit);
        } else {
            // Strengths that cancel out can give any value.
            best_.IsComplete = false;
        }
        if (!best_.IsComplete) {
            TrySamples(limits.Samples);
        }
        return best_;
    }

  private:
    bool IsLimitReached() const { return best_.Value && *best_.Value >= limit_; }

    /// Where a rule fires alone, the output is at its position: mostly the search ends here.
    void TryCentersOfHighestRules() {
        constexpr std::size_t MostTried = 200;
        std::vector<std::uint32_t> highest = firing_;
        const auto end =
            highest.begin() + static_cast<std::ptrdiff_t>(std::min(MostTried, highest.size()));
        std::ranges::partial_sort(highest, end, std::ranges::greater(), [this](std::uint32_t rule) {
            return sign_ * *rules_.PositionOf(rule, output_);
        });
        std::vector<double> point(rules_.Inputs());
        for (auto rule = highest.begin(); rule != end && !IsLimitReached(); ++rule) {
            for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
                const std::uint32_t condition = rules_.ConditionOf(*rule, input);
                const Axis& axis = rules_.Axes[input];
                point[input] = condition == RuleTable::None ? MiddleOf({axis.Lower, axis.Upper})
                                                            : CenterOf(axis, condition);
            }
            Try(point);
        }
    }

    void TrySamples(std::size_t samples) {
        Draw draw;
        std::vector<double> point(rules_.Inputs());
        for (std::size_t i = 0; i < samples && !IsLimitReached(); ++i) {
            for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
                const Axis& axis = rules_.Axes[input];
                if (axis.Pieces.empty()) {
                    point[input] = axis.Lower;
                    continue;
                }
                const Range& range = axis.Pieces[draw.Below(axis.Pieces.size())].Values;
                point[input] = draw.Below(2) == 0 ? range.First : range.Last;
            }
            Try(point);
        }
    }

    void Try(const std::vector<double>& point) {
        const auto& value = response_.At(point)[output_];
        if (value && (!best_.Value || sign_ * *value > *best_.Value)) {
            best_.Value = sign_ * *value;
            best_.Point = point;
        }
    }

    const RuleTable& rules_;
    Response& response_;
    std::size_t output_;
    double sign_;
    double limit_ = 0;
    bool areWeightsPositive_ = true;
    std::vector<std::uint32_t> firing_;
    Extreme best_;
};

Finding NotReached(const RuleTable& rules, std::size_t output, double bound, Range reached,
                   const Extreme& nearest) {
    Finding finding;
    finding.Kind = FindingKind::RangeNotReached;
    finding.Level = Severity::Warning;
    finding.Output = rules.Outputs[output].Variable;
    finding.Figure = bound;
    finding.Region = {reached};
    finding.Example = nearest.Point;
    finding.IsExact = nearest.IsComplete;
    return finding;
}

} // namespace

std::vector<Finding> FindReach(const RuleTable& rules, Response& response,
                               const CheckLimits& limits) {
    std::vector<Finding> findings;
    CheckLimits each = limits;
    each.Steps /= 4 * std::max<std::size_t>(rules.Outputs.size(), 1);
    for (std::size_t output = 0; output < rules.Outputs.size(); ++output) {
        const auto& variable = rules.Checked().Outputs[rules.Outputs[output].Variable];
        if (!(variable.Lower < variable.Upper) || !rules.Outputs[output].IsSet) {
            continue;
        }
        const double slack = (variable.Upper / 2 - variable.Lower / 2) * 2 * Tolerance;
        const double high = variable.Upper - slack;
        const double low = variable.Lower + slack;
        const Extreme highest = ReachOfOutput(rules, response, output, 1).Run(high, each);
        const Extreme lowest = ReachOfOutput(rules, response, output, -1).Run(-low, each);
        if (!highest.Value || !lowest.Value) {
            continue; // No rule fires, which is a gap.
        }
        const Range reached{std::clamp(-*lowest.Value, variable.Lower, variable.Upper),
                            std::clamp(*highest.Value, variable.Lower, variable.Upper)};
        if (reached.Last < high) {
            findings.push_back(NotReached(rules, output, variable.Upper, reached, highest));
        }
        if (reached.First > low) {
            findings.push_back(NotReached(rules, output, variable.Lower, reached, lowest));
        }
    }
    return findings;
}

} // namespace Quorvane::Check
