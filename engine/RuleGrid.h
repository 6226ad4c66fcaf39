// SPDX-License-Identifier: MIT
// Finds the rules that fire in a rule base that covers (nearly) all combinations of terms.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Quorvane::RunTime {

struct RuleTables;

/// The combinations of terms as the cells of a grid with one axis per input, each cell with the
/// rules that have these terms. Of every axis only the terms whose degree is not 0 matter, so the
/// rules that fire are found by visiting their cells alone. A rule in which an input takes no part
/// lies at a place of the axis that always matters.
class RuleGrid {
  public:
    /// Nothing where the grid would have many more cells than there are rules.
    static std::optional<RuleGrid> Build(const RuleTables& tables);

    /// An input has new degrees, one for each of its used terms.
    void Update(std::size_t input, std::span<const double> degrees);

    /// The rules whose terms all have a degree other than 0, in rule order. Valid until the next
    /// call.
    std::span<const std::uint32_t> Select();

  private:
    struct Axis {
        std::uint32_t TermCount = 0;
        std::uint32_t Stride = 0;
        /// Where rules lie in which the input takes no part, if there are any.
        std::optional<std::uint32_t> FreePlace;
        /// The cell offsets of the places that matter now.
        std::vector<std::uint32_t> ActiveOffsets;
    };

    static constexpr std::uint32_t NoRule = 0xFFFFFFFF;

    explicit RuleGrid(std::vector<Axis> axes) : axes_(std::move(axes)) {}

    void PlaceRules(const RuleTables& tables, std::size_t cellCount);

    std::vector<Axis> axes_;
    /// The first rule of each cell, and the next rule in the cell of each rule.
    std::vector<std::uint32_t> firstRules_;
    std::vector<std::uint32_t> nextRules_;

    // Reused from one call to the next, so that selecting allocates nothing.
    std::vector<std::uint32_t> cells_;
    std::vector<std::uint32_t> selected_;
};

} // namespace Quorvane::RunTime
