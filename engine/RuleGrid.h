// SPDX-License-Identifier: MIT
// Fires a large rule base that covers (nearly) all combinations of terms.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {

/// The combinations of terms as the cells of a grid with one axis per input, each cell with the
/// rules that have these terms. Of every axis only the places whose degree is not 0 matter, so the
/// rules that fire are found by visiting their cells alone. A rule in which an input takes no part
/// lies at a place of the axis whose degree is always 1.
class RuleGrid {
  public:
    /// Nothing where there are fewer than two inputs, where the grid would have many more cells
    /// than there are rules, or where rules name the inputs in different orders: degrees are
    /// multiplied in the order of the axes. Nothing either where rules in no order share cells: so
    /// many fire that putting them in order would take too long.
    static std::optional<RuleGrid> Build(const RuleTables& tables);

    /// An input has new degrees.
    void Update(const RuleTables& tables, std::size_t input);

    /// Visits the rules that use no term of degree 0, in order, with their strengths.
    template <class Visit>
    void Fire(const RuleTables& tables, Visit visit) {
        if (isInRuleOrder_) {
            VisitActiveCells(tables, visit);
            return;
        }
        std::size_t count = 0;
        VisitActiveCells(tables, [&](std::uint32_t rule, double strength) {
            fired_[count++] = {rule, strength};
        });
        const auto fired = std::span(fired_).first(count);
        std::ranges::sort(fired, {}, &FiredRule::Rule);
        for (const auto& [rule, strength] : fired) {
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

    static constexpr std::uint32_t NoRule = 0xFFFFFFFF;

    explicit RuleGrid(std::vector<Axis> axes)
        : axes_(std::move(axes)), current_(axes_.size() - 2), degrees_(axes_.size() - 2),
          cells_(axes_.size() - 1) {}

    std::vector<std::uint32_t> CellsOfRules(const RuleTables& tables) const;
    void PlaceRules(const std::vector<std::uint32_t>& cells, std::size_t cellCount);

    std::span<const Place> ActivePlaces(std::size_t axis) const {
        return std::span(axes_[axis].Places).first(axes_[axis].ActiveCount);
    }

    /// Visits the rules of the active cells plane by plane. A plane is the cells that differ in the
    /// places on the last two axes alone.
    template <class Visit>
    void VisitActiveCells(const RuleTables& tables, Visit visit) {
        switch (degrees_.size()) {
        case 1:
            return VisitPlanes(std::make_index_sequence<1>(), tables, visit);
        case 2:
            return VisitPlanes(std::make_index_sequence<2>(), tables, visit);
        case 3:
            return VisitPlanes(std::make_index_sequence<3>(), tables, visit);
        default:
            for (bool isPlane = FirstPlane(); isPlane; isPlane = NextPlane()) {
                VisitPlane(visit, [&](std::uint32_t rule) {
                    double strength = tables.Weights[rule];
                    for (const double degree : degrees_) {
                        strength *= degree;
                    }
                    return strength;
                });
            }
        }
    }

    /// The same with so many axes outside of the planes that their degrees stay in registers.
    template <std::size_t... Outer, class Visit>
    void VisitPlanes(std::index_sequence<Outer...>, const RuleTables& tables, Visit visit) {
        for (bool isPlane = FirstPlane(); isPlane; isPlane = NextPlane()) {
            VisitPlane(visit,
                       [weights = tables.Weights.data(), degrees = std::array{degrees_[Outer]...}](
                           std::uint32_t rule) { return (weights[rule] * ... * degrees[Outer]); });
        }
    }

    /// Visits the rules of a plane. Their strengths without the degrees of the last two axes are
    /// computed by outerStrength.
    template <class Visit, class OuterStrength>
    void VisitPlane(Visit& visit, OuterStrength outerStrength) {
        const std::size_t rows = degrees_.size();
        for (const Place& row : ActivePlaces(rows)) {
            const std::uint32_t* const firstRules = firstRules_.data() + cells_[rows] + row.Offset;
            for (const Place& place : ActivePlaces(rows + 1)) {
                for (std::uint32_t rule = firstRules[place.Offset]; rule != NoRule;
                     rule = nextRules_[rule]) {
                    visit(rule, outerStrength(rule) * row.Degree * place.Degree);
                }
            }
        }
    }

    bool FirstPlane() {
        if (std::ranges::any_of(axes_, [](const Axis& axis) { return axis.ActiveCount == 0; })) {
            return false;
        }
        EnterPlane(0);
        return true;
    }

    /// Moves on like a number whose digits are the active places; at the end all are 0 again.
    bool NextPlane() {
        for (std::size_t axis = current_.size(); axis-- > 0;) {
            if (++current_[axis] < axes_[axis].ActiveCount) {
                EnterPlane(axis);
                return true;
            }
            current_[axis] = 0;
        }
        return false;
    }

    void EnterPlane(std::size_t firstChanged) {
        for (std::size_t axis = firstChanged; axis < current_.size(); ++axis) {
            const Place& place = axes_[axis].Places[current_[axis]];
            degrees_[axis] = place.Degree;
            cells_[axis + 1] = cells_[axis] + place.Offset;
        }
    }

    std::vector<Axis> axes_;
    /// The first rule of each cell, and the next rule in the cell of each rule.
    std::vector<std::uint32_t> firstRules_;
    std::vector<std::uint32_t> nextRules_;
    /// Whether the cells are visited in the order of their rules.
    bool isInRuleOrder_ = false;

    // The plane being visited: for all axes but two, the number of the active place and its degree;
    // before each axis and at the end, the cell at the places of the axes before.
    std::vector<std::size_t> current_;
    std::vector<double> degrees_;
    std::vector<std::uint32_t> cells_;
    // Reused from one call to the next, so that firing allocates nothing.
    std::vector<FiredRule> fired_;
};

} // namespace Quorvane::RunTime
