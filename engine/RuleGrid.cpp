// SPDX-License-Identifier: MIT
// Fires a large rule base that covers (nearly) all combinations of terms.
#include "engine/RuleGrid.h"

#include <algorithm>
#include <numeric>

namespace Quorvane::RunTime {
namespace {

/// The most cells that a rule base may have for each of its rules.
constexpr std::size_t CellsPerRule = 4;

/// The most axes: for each number of them there is a walk of its own.
constexpr std::size_t MostAxes = 6;

std::vector<std::uint32_t> InputsOfDegrees(const RuleTables& tables) {
    std::vector<std::uint32_t> inputs(tables.Degrees.size());
    for (std::size_t input = 0; input < tables.UsedInputs.size(); ++input) {
        const UsedInput& used = tables.UsedInputs[input];
        std::fill_n(&inputs[used.FirstTerm], used.TermCount, static_cast<std::uint32_t>(input));
    }
    return inputs;
}

/// How many rules name a term of each input.
std::vector<std::size_t> CountNamingRules(const RuleTables& tables) {
    const auto inputOfDegree = InputsOfDegrees(tables);
    std::vector<std::size_t> counts(tables.UsedInputs.size());
    for (const std::uint32_t degree : tables.Antecedents) {
        ++counts[inputOfDegree[degree]];
    }
    return counts;
}

/// Whether every rule names its inputs in the order of the tables.
bool IsInInputOrder(const RuleTables& tables) {
    for (std::size_t rule = 0; rule < tables.RuleCount(); ++rule) {
        if (!std::ranges::is_sorted(tables.AntecedentsOf(rule))) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<RuleGrid> RuleGrid::Build(const RuleTables& tables) {
    const std::size_t axisCount = tables.UsedInputs.size();
    if (axisCount < 2 || axisCount > MostAxes || !IsInInputOrder(tables)) {
        return std::nullopt;
    }
    const std::size_t mostCells = CellsPerRule * tables.RuleCount();
    const auto namingRules = CountNamingRules(tables);
    std::vector<Axis> axes(axisCount);
    std::size_t cellCount = 1;
    // From the last input to the first, so that the last varies fastest: rules are commonly
    // written in that order, and then their cells are, too.
    for (std::size_t input = axisCount; input-- > 0;) {
        std::uint32_t places = tables.UsedInputs[input].TermCount;
        axes[input].Stride = static_cast<std::uint32_t>(cellCount);
        if (namingRules[input] < tables.RuleCount()) {
            axes[input].FreePlace = places++;
        }
        axes[input].Places.resize(places);
        // Divided, as the product of very many terms can be beyond 32 bits.
        if (places > mostCells / cellCount) {
            return std::nullopt;
        }
        cellCount *= places;
    }
    RuleGrid grid(std::move(axes));
    const auto cells = grid.CellsOfRules(tables);
    grid.CountRules(cells, cellCount);
    if (!std::ranges::is_sorted(cells)) {
        if (cellCount < tables.RuleCount()) {
            return std::nullopt;
        }
        grid.PutInCellOrder(tables, cells);
    }
    for (std::size_t input = 0; input < axisCount; ++input) {
        grid.Update(tables, input);
    }
    return grid;
}

std::vector<std::uint32_t> RuleGrid::CellsOfRules(const RuleTables& tables) const {
    const auto inputOfDegree = InputsOfDegrees(tables);
    std::uint32_t allFree = 0;
    for (const Axis& axis : axes_) {
        allFree += axis.FreePlace.value_or(0) * axis.Stride;
    }
    std::vector<std::uint32_t> cells(tables.RuleCount(), allFree);
    for (std::size_t rule = 0; rule < cells.size(); ++rule) {
        for (const std::uint32_t degree : tables.AntecedentsOf(rule)) {
            const std::uint32_t input = inputOfDegree[degree];
            const Axis& axis = axes_[input];
            const std::uint32_t place = degree - tables.UsedInputs[input].FirstTerm;
            cells[rule] += (place - axis.FreePlace.value_or(0)) * axis.Stride;
        }
    }
    return cells;
}

void RuleGrid::CountRules(const std::vector<std::uint32_t>& cells, std::size_t cellCount) {
    firstRules_.resize(cellCount + 1);
    for (const std::uint32_t cell : cells) {
        ++firstRules_[cell + 1];
    }
    std::partial_sum(firstRules_.begin(), firstRules_.end(), firstRules_.begin());
}

void RuleGrid::PutInCellOrder(const RuleTables& tables, const std::vector<std::uint32_t>& cells) {
    rulesByCell_.resize(cells.size());
    weightsByCell_.resize(cells.size());
    fired_.resize(cells.size());
    std::vector<std::uint32_t> nextPlaces(firstRules_.begin(), firstRules_.end() - 1);
    for (std::uint32_t rule = 0; rule < cells.size(); ++rule) {
        const std::uint32_t place = nextPlaces[cells[rule]]++;
        rulesByCell_[place] = rule;
        weightsByCell_[place] = tables.Weights[rule];
    }
}

std::span<const RuleGrid::FiredRule> RuleGrid::FiredInOrder() {
    FiredRule* end = fired_.data();
    VisitActiveCells(weightsByCell_.data(), [&](std::uint32_t place, double strength) {
        *end++ = {rulesByCell_[place], strength};
    });
    const std::span fired(fired_.data(), end);
    std::ranges::sort(fired, {}, &FiredRule::Rule);
    return fired;
}

} // namespace Quorvane::RunTime
