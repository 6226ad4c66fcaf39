// SPDX-License-Identifier: MIT
// The search for combinations of ranges in which none of some rules fires.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "check/RuleTable.h"

namespace Quorvane::Check {

/// What a search has found.
struct GapsFound {
    std::size_t Count = 0;
    /// Of the whole universe, 0..1.
    double Share = 0;
    /// The largest gap: a range for each input.
    std::vector<Range> Largest;
    /// Whether the search came to its end.
    bool IsComplete = true;
};

/// Goes through the inputs one by one, keeping the rules that can still fire. A branch ends as soon
/// as no rule is left, which is a gap, or one has no more conditions, which covers all the rest. Of
/// an input only those classes are looked at in which nothing less holds than in one that turned
/// out to be covered.
///
/// Finding out whether boxes cover a space takes exponential time in the worst case, hence the
/// limit of steps.
class GapSearch {
  public:
    GapSearch(const RuleTable& rules, std::vector<std::vector<ActiveClass>> classes,
              std::size_t steps);

    GapsFound Run(std::span<const std::uint32_t> firing);

  private:
    struct Candidate {
        std::uint32_t Rule;
        /// How many of its conditions have not been looked at yet.
        std::uint32_t Remaining;
    };

    /// Room for one level of the search, used again for each branch.
    struct Level {
        /// The candidates by their condition on the level's input; those without one come last.
        std::vector<Candidate> Sorted;
        std::vector<std::size_t> Begins;
        std::vector<Candidate> Left;
    };

    bool Covers(const std::vector<Candidate>& candidates, std::size_t depth);
    bool CoversClasses(const std::vector<Candidate>& candidates, std::size_t input,
                       std::size_t depth);
    std::size_t NextInput(const std::vector<Candidate>& candidates) const;
    void Sort(const std::vector<Candidate>& candidates, std::size_t input, Level& level) const;
    static void Select(const ActiveClass& holding, Level& level);
    void NoteGap();

    const RuleTable& rules_;
    std::vector<std::vector<ActiveClass>> classes_;
    std::size_t steps_;
    std::vector<Level> levels_;
    /// The class that each input is in, null before one is chosen.
    std::vector<const ActiveClass*> chosen_;
    GapsFound found_;
    std::size_t thinInputsOfLargest_ = 0;
    double sizeOfLargest_ = 0;
};

} // namespace Quorvane::Check
