// SPDX-License-Identifier: MIT
// What a system answers, computed from the few rules that fire.
#include "check/Response.h"

#include <algorithm>
#include <cmath>

#include "check/Degree.h"

namespace Quorvane::Check {
namespace {

std::size_t PieceAt(const Axis& axis, double x) {
    const auto after = std::ranges::upper_bound(
        axis.Pieces, x, {}, [](const Piece& piece) { return piece.Values.First; });
    return after == axis.Pieces.begin() ? 0
                                        : static_cast<std::size_t>(after - axis.Pieces.begin()) - 1;
}

} // namespace

Response::Response(const RuleTable& rules)
    : rules_(rules), firing_(rules.Rules()), left_(rules.Rules()), sums_(rules.Outputs.size()),
      values_(rules.Outputs.size()) {
    for (std::size_t rule = 0; rule < rules.Rules(); ++rule) {
        if (rules.CanFire(rule)) {
            firing_.Add(rule);
        }
    }
    for (std::size_t input = 0; input < rules.Inputs(); ++input) {
        degrees_.emplace_back(rules.Axes[input].Conditions.size());
        auto& sets = sets_.emplace_back();
        for (const Piece& piece : rules.Axes[input].Pieces) {
            sets.push_back(RulesWith(rules, input, piece.Active));
        }
    }
}

const std::vector<std::optional<double>>& Response::At(std::span<const double> point) {
    left_ = firing_;
    for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
        const Axis& axis = rules_.Axes[input];
        if (axis.Pieces.empty()) {
            continue;
        }
        const std::size_t place = PieceAt(axis, point[input]);
        left_.KeepThoseIn(sets_[input][place]);
        for (const std::uint32_t condition : axis.Pieces[place].Active) {
            degrees_[input][condition] =
                DegreeOf(axis.Conditions[condition], rules_.Checked().Inputs[input], point[input]);
        }
    }
    std::ranges::fill(sums_, Sum{});
    left_.ForEach([this](std::size_t rule) { Fire(rule); });
    for (std::size_t output = 0; output < sums_.size(); ++output) {
        const auto [numerator, denominator] = sums_[output];
        const double value = numerator / denominator;
        values_[output] = denominator == 0       ? rules_.Outputs[output].Default
                          : std::isfinite(value) ? std::optional(value)
                                                 : std::nullopt;
    }
    return values_;
}

void Response::Fire(std::size_t rule) {
    double strength = rules_.WeightOf(rule);
    for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
        const std::uint32_t condition = rules_.ConditionOf(rule, input);
        if (condition != RuleTable::None) {
            strength *= degrees_[input][condition];
        }
    }
    for (std::size_t output = 0; output < sums_.size(); ++output) {
        if (const auto& position = rules_.PositionOf(rule, output)) {
            sums_[output].Numerator += strength * *position;
            sums_[output].Denominator += strength;
        }
    }
}

} // namespace Quorvane::Check
