// SPDX-License-Identifier: MIT
// Fires a large rule base that covers (nearly) all combinations of terms.
#include "engine/RuleGrid.h"

namespace Quorvane::RunTime {
namespace {

/// The most cells that a rule base may have for each of its rules.
constexpr std::size_t CellsPerRule = 4;

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
    if (tables.UsedInputs.size() < 2 || !IsInInputOrder(tables)) {
        return std::nullopt;
    }
    const std::size_t mostCells = CellsPerRule * tables.RuleCount();
    const auto namingRules = CountNamingRules(tables);
    std::vector<Axis> axes(tables.UsedInputs.size());
    std::size_t cellCount = 1;
    // From the last input to the first, so that the last varies fastest: rules are commonly
    // written in that order, and then their cells are, too.
    for (std::size_t input = axes.size(); input-- > 0;) {
        std::uint32_t places = tables.UsedInputs[input].TermCount;
        axes[input].Stride = static_cast<std::uint32_t>(cellCount);
        if (namingRules[input] < tables.RuleCount()) {
            axes[input].FreePlace = places++;
        }
        // One more, as Update writes a place before it knows whether it matters.
        axes[input].Places.resize(places + 1);
        // Divided, as the product of very many terms can be beyond 32 bits.
        if (places > mostCells / cellCount) {
            return std::nullopt;
        }
        cellCount *= places;
    }
    RuleGrid grid(std::move(axes));
    grid.PlaceRules(grid.CellsOfRules(tables), cellCount);
    if (!grid.isInRuleOrder_ && cellCount < tables.RuleCount()) {
        return std::nullopt;
    }
    for (std::size_t input = 0; input < tables.UsedInputs.size(); ++input) {
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

void RuleGrid::PlaceRules(const std::vector<std::uint32_t>& cells, std::size_t cellCount) {
    firstRules_.assign(cellCount, NoRule);
    nextRules_.assign(cells.size(), NoRule);
    // From the last rule to the first, so that the rules of one cell are in rule order.
    for (auto rule = static_cast<std::uint32_t>(cells.size()); rule-- > 0;) {
        nextRules_[rule] = firstRules_[cells[rule]];
        firstRules_[cells[rule]] = rule;
    }
    isInRuleOrder_ = std::ranges::is_sorted(cells);
    fired_.resize(isInRuleOrder_ ? 0 : cells.size());
}

void RuleGrid::Update(const RuleTables& tables, std::size_t input) {
    Axis& axis = axes_[input];
    std::size_t count = 0;
    std::uint32_t offset = 0;
    for (const double degree : tables.DegreesOf(input)) {
        // Written or overwritten: whether a degree is 0 cannot be predicted.
        axis.Places[count] = {offset, degree};
        count += degree > 0 ? 1 : 0;
        offset += axis.Stride;
    }
    if (axis.FreePlace) {
        axis.Places[count++] = {*axis.FreePlace * axis.Stride, 1};
    }
    axis.ActiveCount = count;
}

} // namespace Quorvane::RunTime
