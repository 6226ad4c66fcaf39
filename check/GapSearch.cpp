// SPDX-License-Identifier: MIT
// The search for combinations of ranges in which none of some rules fires.
#include "check/GapSearch.h"

#include <algorithm>
#include <utility>

namespace Quorvane::Check {

GapSearch::GapSearch(const RuleTable& rules, std::vector<std::vector<ActiveClass>> classes,
                     std::size_t steps)
    : rules_(rules), classes_(std::move(classes)), steps_(steps), levels_(rules.Inputs()),
      chosen_(rules.Inputs()) {}

GapsFound GapSearch::Run(std::span<const std::uint32_t> firing) {
    std::vector<Candidate> candidates;
    for (const std::uint32_t rule : firing) {
        candidates.push_back({rule, rules_.ConditionsOf(rule)});
    }
    Covers(candidates, 0);
    return std::exchange(found_, {});
}

/// Whether candidates cover all that is left open. False, too, when the steps are used up.
bool GapSearch::Covers(const std::vector<Candidate>& candidates, std::size_t depth) {
    if (candidates.empty()) {
        NoteGap();
        return false;
    }
    if (std::ranges::any_of(candidates, [](Candidate each) { return each.Remaining == 0; })) {
        return true;
    }
    const std::size_t steps = candidates.size() * (rules_.Inputs() - depth) + 1;
    if (steps > steps_) {
        found_.IsComplete = false;
        return false;
    }
    steps_ -= steps;
    return CoversClasses(candidates, NextInput(candidates), depth);
}

bool GapSearch::CoversClasses(const std::vector<Candidate>& candidates, std::size_t input,
                              std::size_t depth) {
    Level& level = levels_[depth];
    Sort(candidates, input, level);
    bool coversAll = true;
    std::vector<const ActiveClass*> covered;
    for (const ActiveClass& each : classes_[input]) {
        if (std::ranges::any_of(covered, [&](const ActiveClass* less) {
                return IsSubset(less->Active, each.Active);
            })) {
            continue;
        }
        chosen_[input] = &each;
        Select(each, level);
        if (Covers(level.Left, depth + 1)) {
            covered.push_back(&each);
        } else {
            coversAll = false;
        }
        if (!found_.IsComplete) {
            break;
        }
    }
    chosen_[input] = nullptr;
    return coversAll;
}

/// The open input on which most of those candidates have a condition that have the fewest left:
/// what one of them needs to cover the rest is decided first.
std::size_t GapSearch::NextInput(const std::vector<Candidate>& candidates) const {
    const std::uint32_t fewest = std::ranges::min(candidates, {}, &Candidate::Remaining).Remaining;
    std::vector<std::size_t> named(chosen_.size());
    for (const Candidate each : candidates) {
        for (std::size_t input = 0; each.Remaining == fewest && input < named.size(); ++input) {
            const bool isOpen = !chosen_[input];
            named[input] +=
                isOpen && rules_.ConditionOf(each.Rule, input) != RuleTable::None ? 1U : 0U;
        }
    }
    return static_cast<std::size_t>(std::ranges::max_element(named) - named.begin());
}

void GapSearch::Sort(const std::vector<Candidate>& candidates, std::size_t input,
                     Level& level) const {
    const std::size_t conditions = rules_.Axes[input].Conditions.size();
    const auto placeOf = [&](Candidate each) -> std::size_t {
        return std::min<std::size_t>(rules_.ConditionOf(each.Rule, input), conditions);
    };
    level.Begins.assign(conditions + 2, 0);
    for (const Candidate each : candidates) {
        ++level.Begins[placeOf(each) + 1];
    }
    for (std::size_t i = 1; i < level.Begins.size(); ++i) {
        level.Begins[i] += level.Begins[i - 1];
    }
    level.Sorted.resize(candidates.size());
    std::vector<std::size_t> next(level.Begins.begin(), level.Begins.end() - 1);
    for (const Candidate each : candidates) {
        const std::size_t place = placeOf(each);
        const std::uint32_t looked = place < conditions ? 1 : 0;
        level.Sorted[next[place]++] = {each.Rule, each.Remaining - looked};
    }
}

/// Leaves the candidates that can fire where those conditions hold.
void GapSearch::Select(const ActiveClass& holding, Level& level) {
    level.Left.clear();
    const auto append = [&level](std::size_t place) {
        const auto begin = level.Sorted.begin();
        level.Left.insert(level.Left.end(),
                          begin + static_cast<std::ptrdiff_t>(level.Begins[place]),
                          begin + static_cast<std::ptrdiff_t>(level.Begins[place + 1]));
    };
    for (const std::uint32_t condition : holding.Active) {
        append(condition);
    }
    append(level.Begins.size() - 2);
}

void GapSearch::NoteGap() {
    ++found_.Count;
    double share = 1;
    // How large it looks: single values count first, then the size in the other inputs.
    std::size_t thinInputs = 0;
    double size = 1;
    std::vector<Range> ranges;
    for (std::size_t input = 0; input < chosen_.size(); ++input) {
        const Axis& axis = rules_.Axes[input];
        ranges.push_back(chosen_[input] ? chosen_[input]->Widest : Range{axis.Lower, axis.Upper});
        if (chosen_[input]) {
            share *= chosen_[input]->Share;
            const double width = ShareOf(axis, ranges.back());
            thinInputs += width == 0 ? 1U : 0U;
            size *= width == 0 ? 1 : width;
        }
    }
    found_.Share += share;
    if (found_.Largest.empty() || thinInputs < thinInputsOfLargest_ ||
        (thinInputs == thinInputsOfLargest_ && size > sizeOfLargest_)) {
        found_.Largest = std::move(ranges);
        thinInputsOfLargest_ = thinInputs;
        sizeOfLargest_ = size;
    }
}

} // namespace Quorvane::Check
