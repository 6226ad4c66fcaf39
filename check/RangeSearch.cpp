// SPDX-License-Identifier: MIT
// The search for the highest value of an output.
#include "check/RangeSearch.h"

#include <algorithm>
#include <utility>

#include "check/Degree.h"

namespace Quorvane::Check {

RangeSearch::RangeSearch(const RuleTable& rules, std::size_t output, double sign, std::size_t steps)
    : rules_(rules), output_(output), sign_(sign), steps_(steps), levels_(rules.Inputs() + 1),
      point_(rules.Inputs()) {
    for (std::size_t input = 0; input < rules.Inputs(); ++input) {
        MakeCorners(input);
    }
}

void RangeSearch::MakeCorners(std::size_t input) {
    auto& corners = corners_.emplace_back();
    const Axis& axis = rules_.Axes[input];
    if (axis.Pieces.empty()) {
        corners.push_back({axis.Lower, std::vector<double>(axis.Conditions.size())});
    }
    for (const Piece& piece : axis.Pieces) {
        corners.push_back(MakeCorner(input, piece, piece.Values.First));
        if (piece.Values.Last != piece.Values.First) {
            corners.push_back(MakeCorner(input, piece, piece.Values.Last));
        }
    }
}

RangeSearch::Corner RangeSearch::MakeCorner(std::size_t input, const Piece& piece, double x) const {
    Corner corner = CornerAt(input, piece, x);
    if (std::ranges::any_of(piece.Active,
                            [&](std::uint32_t active) { return corner.Degrees[active] == 0; })) {
        // Beside 0 there are numbers so small that the degree is rounded away; a little further in
        // it is not.
        constexpr double Little = 0x1p-40;
        corner = CornerAt(input, piece, x + (MiddleOf(piece.Values) - x) * Little);
    }
    return corner;
}

RangeSearch::Corner RangeSearch::CornerAt(std::size_t input, const Piece& piece, double x) const {
    const Axis& axis = rules_.Axes[input];
    Corner corner{x, std::vector<double>(axis.Conditions.size())};
    for (const std::uint32_t condition : piece.Active) {
        corner.Degrees[condition] =
            DegreeOf(axis.Conditions[condition], rules_.Checked().Inputs[input], x);
    }
    return corner;
}

Extreme RangeSearch::Run(std::span<const std::uint32_t> firing, Extreme known, double limit) {
    best_ = std::move(known);
    limit_ = limit;
    std::vector<Candidate> candidates;
    for (const std::uint32_t rule : firing) {
        candidates.push_back({rule, rules_.WeightOf(rule)});
    }
    Search(candidates, 0);
    return std::exchange(best_, {});
}

/// Whether candidates can give more than has been found.
bool RangeSearch::CanRise(const std::vector<Candidate>& candidates) const {
    return std::ranges::any_of(candidates, [this](const Candidate& each) {
        return !best_.Value || PositionOf(each.Rule) > *best_.Value;
    });
}

void RangeSearch::Search(const std::vector<Candidate>& candidates, std::size_t depth) {
    if (!CanRise(candidates)) {
        return;
    }
    if (depth == rules_.Inputs()) {
        Evaluate(candidates);
        return;
    }
    for (const Corner& corner : corners_[depth]) {
        if (best_.Value && *best_.Value >= limit_) {
            return;
        }
        if (steps_ < candidates.size() + 1) {
            best_.IsComplete = false;
            return;
        }
        steps_ -= candidates.size() + 1;
        point_[depth] = corner.Value;
        std::vector<Candidate>& left = levels_[depth];
        left.clear();
        for (const auto [rule, strength] : candidates) {
            const std::uint32_t condition = rules_.ConditionOf(rule, depth);
            const double degree = condition == RuleTable::None ? 1 : corner.Degrees[condition];
            if (degree > 0) {
                left.push_back({rule, strength * degree});
            }
        }
        ScaleUp(left);
        Search(left, depth + 1);
    }
}

/// Only the ratios of strengths count. So near the feet of many terms they need not become 0.
void RangeSearch::ScaleUp(std::vector<Candidate>& candidates) {
    constexpr double Small = 0x1p-400;
    constexpr double Factor = 0x1p400;
    if (std::ranges::all_of(candidates,
                            [](const Candidate& each) { return each.Strength < Small; })) {
        for (Candidate& each : candidates) {
            each.Strength *= Factor;
        }
    }
}

void RangeSearch::Evaluate(const std::vector<Candidate>& candidates) {
    double numerator = 0;
    double denominator = 0;
    for (const auto [rule, strength] : candidates) {
        numerator += strength * PositionOf(rule);
        denominator += strength;
    }
    const double value = numerator / denominator;
    if (denominator > 0 && (!best_.Value || value > *best_.Value)) {
        best_.Value = value;
        best_.Point = point_;
    }
}

} // namespace Quorvane::Check
