// SPDX-License-Identifier: MIT
// Fires a large rule base that covers (nearly) all combinations of terms.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// The combinations of terms as the cells of a grid with one axis per input, each cell with the
/// rules that have these terms. Of every axis only the places whose degree is not 0 matter, so the
/// rules that fire are found by visiting their cells alone. A rule in which an input takes no part
/// lies at a place of the axis whose degree is always 1.
class RuleGrid {
  public:
    /// Nothing where there are fewer than two inputs or more than six, where the grid would have
    /// many more cells than there are rules, or where rules name the inputs in different orders:
    /// degrees are multiplied in the order of the axes. Nothing either where rules in no order
    /// share cells: so many fire that putting them in order would take too long.
    static std::optional<RuleGrid> Build(const RuleTables& tables);

    /// An input has new degrees.
    void Update(const RuleTables& tables, std::size_t input) {
        Axis& axis = axes_[input];
        Place* end = axis.Places.data();
        std::uint32_t offset = 0;
        for (const double degree : tables.DegreesOf(input)) {
            // Written or overwritten: whether a degree is 0 cannot be predicted.
            *end = {offset, degree};
            end += degree > 0 ? 1 : 0;
            offset += axis.Stride;
        }
        if (axis.FreePlace) {
            *end++ = {*axis.FreePlace * axis.Stride, 1};
        }
        axis.ActiveCount = static_cast<std::size_t>(end - axis.Places.data());
    }

    /// Visits the rules that use no term of degree 0, in order, with their strengths.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) {
        if (rulesByCell_.empty()) {
            VisitActiveCells(tables.Weights.data(), visit);
            return;
        }
        for (const auto& [rule, strength] : FiredInOrder()) {
            visit(rule, strength);
        }
    }

  private:
    /// A place on an axis.
    struct Place {
        /// How far its cells are from those of the first place.
        std::uint32_t Offset;
        double Degree;
    };

    struct Axis {
        /// How far apart the cells of neighbouring places are.
        std::uint32_t Stride = 0;
        /// Where rules lie in which the input takes no part, if there are any.
        std::optional<std::uint32_t> FreePlace;
        /// The places that matter now: the first ActiveCount.
        std::vector<Place> Places;
        std::size_t ActiveCount = 0;
    };

    struct FiredRule {
        std::uint32_t Rule;
        double Strength;
    };

    explicit RuleGrid(std::vector<Axis> axes) : axes_(std::move(axes)) {}

    std::vector<std::uint32_t> CellsOfRules(const RuleTables& tables) const;
    void CountRules(const std::vector<std::uint32_t>& cells, std::size_t cellCount);
    void PutInCellOrder(const RuleTables& tables, const std::vector<std::uint32_t>& cells);

    /// The rules that fire where cells are not in the order of their rules. Lasts until the next
    /// call.
    std::span<const FiredRule> FiredInOrder();

    /// Visits the numbers of the rules in cell order that use no term of degree 0, with their
    /// strengths. The weights are in cell order, too.
    template <class Visit>
    void VisitActiveCells(const double* weights, Visit visit) const {
        const std::uint32_t* const firstRules = firstRules_.data();
        switch (axes_.size()) {
        case 2:
            return VisitAxes<2>(weights, firstRules, visit);
        case 3:
            return VisitAxes<3>(weights, firstRules, visit);
        case 4:
            return VisitAxes<4>(weights, firstRules, visit);
        case 5:
            return VisitAxes<5>(weights, firstRules, visit);
        default:
            return VisitAxes<6>(weights, firstRules, visit);
        }
    }

    /// Visits the cells at the active places of the axes after those whose degrees are given: as
    /// many loops, one in the other, as there are axes. The cell is that at the places so far.
    template <std::size_t AxisCount, class Visit, class... Degrees>
    [[gnu::always_inline]] void VisitAxes(const double* weights, const std::uint32_t* cell,
                                          Visit& visit, Degrees... degrees) const {
        constexpr std::size_t Next = sizeof...(degrees);
        if constexpr (Next == AxisCount) {
            for (std::uint32_t rule = cell[0]; rule != cell[1]; ++rule) {
                visit(rule, (weights[rule] * ... * degrees));
            }
        } else {
            const Axis& axis = axes_[Next];
            for (const Place& place : std::span(axis.Places.data(), axis.ActiveCount)) {
                VisitAxes<AxisCount>(weights, cell + place.Offset, visit, degrees..., place.Degree);
            }
        }
    }

    std::vector<Axis> axes_;
    /// The rules in cell order: those of a cell go from its number here to that of the next.
    std::vector<std::uint32_t> firstRules_;
    /// Which rules these are, and their weights; nothing where they are in order themselves.
    std::vector<std::uint32_t> rulesByCell_;
    std::vector<double> weightsByCell_;
    // Reused from one call to the next, so that firing allocates nothing.
    std::vector<FiredRule> fired_;
};

} // namespace Quorvane::RunTime
