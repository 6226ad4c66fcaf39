// SPDX-License-Identifier: MIT
// Finds the rules that fire in a rule base that covers (nearly) all combinations of terms.
#include "engine/RuleGrid.h"

#include <algorithm>

#include "engine/RuleTables.h"

namespace Quorvane::RunTime {
namespace {

/// The most cells that a rule base may have for each of its rules.
constexpr std::size_t CellsPerRule = 4;
/// Grids up to this size are small whatever the number of rules.
constexpr std::size_t SmallGrid = 64;

/// How many rules name a term of each input.
std::vector<std::size_t> CountNamingRules(const RuleTables& tables,
                                          const std::vector<std::uint32_t>& inputOfDegree) {
    std::vector<std::size_t> counts(tables.UsedInputs.size());
    for (const std::uint32_t degree : tables.Antecedents) {
        ++counts[inputOfDegree[degree]];
    }
    return counts;
}

std::vector<std::uint32_t> InputsOfDegrees(const RuleTables& tables) {
    std::vector<std::uint32_t> inputs;
    inputs.reserve(tables.Degrees.size());
    for (std::size_t input = 0; input < tables.UsedInputs.size(); ++input) {
        inputs.insert(inputs.end(), tables.UsedInputs[input].Terms.size(),
                      static_cast<std::uint32_t>(input));
    }
    return inputs;
}

} // namespace

std::optional<RuleGrid> RuleGrid::Build(const RuleTables& tables) {
    const std::size_t mostCells = std::max(SmallGrid, CellsPerRule * tables.RuleCount());
    const auto namingRules = CountNamingRules(tables, InputsOfDegrees(tables));
    std::vector<Axis> axes(tables.UsedInputs.size());
    std::size_t cellCount = 1;
    // From the last input to the first, so that the last varies fastest: rules are commonly
    // written in that order, and then their cells are, too.
    for (std::size_t input = axes.size(); input-- > 0;) {
        const UsedInput& used = tables.UsedInputs[input];
        auto places = static_cast<std::uint32_t>(used.Terms.size());
        axes[input].TermCount = places;
        axes[input].Stride = static_cast<std::uint32_t>(cellCount);
        if (namingRules[input] < tables.RuleCount()) {
            axes[input].FreePlace = places++;
        }
        // Divided, as the product of very many terms can be beyond 32 bits.
        if (places > mostCells / cellCount) {
            return std::nullopt;
        }
        cellCount *= places;
    }
    RuleGrid grid(std::move(axes));
    grid.PlaceRules(tables, cellCount);
    return grid;
}

void RuleGrid::PlaceRules(const RuleTables& tables, std::size_t cellCount) {
    const auto inputOfDegree = InputsOfDegrees(tables);
    std::uint32_t allFree = 0;
    for (const Axis& axis : axes_) {
        allFree += axis.FreePlace.value_or(0) * axis.Stride;
    }
    firstRules_.assign(cellCount, NoRule);
    nextRules_.assign(tables.RuleCount(), NoRule);
    // From the last rule to the first, so that the rules of one cell are in rule order.
    for (std::size_t rule = tables.RuleCount(); rule-- > 0;) {
        std::uint32_t cell = allFree;
        for (const std::uint32_t degree : tables.AntecedentsOf(rule)) {
            const std::uint32_t input = inputOfDegree[degree];
            const Axis& axis = axes_[input];
            const std::uint32_t place = degree - tables.UsedInputs[input].FirstDegree;
            cell += (place - axis.FreePlace.value_or(0)) * axis.Stride;
        }
        nextRules_[rule] = firstRules_[cell];
        firstRules_[cell] = static_cast<std::uint32_t>(rule);
    }
    cells_.resize(cellCount);
    selected_.reserve(tables.RuleCount());
    for (std::size_t input = 0; input < axes_.size(); ++input) {
        axes_[input].ActiveOffsets.reserve(axes_[input].TermCount + 1);
        Update(input, tables.DegreesOf(tables.UsedInputs[input]));
    }
}

void RuleGrid::Update(std::size_t input, std::span<const double> degrees) {
    Axis& axis = axes_[input];
    axis.ActiveOffsets.clear();
    std::uint32_t offset = 0;
    for (const double degree : degrees) {
        if (degree != 0) {
            axis.ActiveOffsets.push_back(offset);
        }
        offset += axis.Stride;
    }
    if (axis.FreePlace) {
        axis.ActiveOffsets.push_back(*axis.FreePlace * axis.Stride);
    }
}

std::span<const std::uint32_t> RuleGrid::Select() {
    std::size_t count = 1;
    cells_[0] = 0;
    for (const Axis& axis : axes_) {
        const auto& offsets = axis.ActiveOffsets;
        // In place from the end: every cell becomes as many as there are places on this axis.
        for (std::size_t cell = count; cell-- > 0;) {
            const std::uint32_t base = cells_[cell];
            for (std::size_t place = offsets.size(); place-- > 0;) {
                cells_[cell * offsets.size() + place] = base + offsets[place];
            }
        }
        count *= offsets.size();
    }
    selected_.clear();
    for (const std::uint32_t cell : std::span(cells_).first(count)) {
        for (std::uint32_t rule = firstRules_[cell]; rule != NoRule; rule = nextRules_[rule]) {
            selected_.push_back(rule);
        }
    }
    if (!std::ranges::is_sorted(selected_)) {
        std::ranges::sort(selected_);
    }
    return selected_;
}

} // namespace Quorvane::RunTime
