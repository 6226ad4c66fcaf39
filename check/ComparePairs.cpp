// SPDX-License-Identifier: MIT
// Rules that contradict each other or say the same twice.
#include "check/ComparePairs.h"

#include <algorithm>

#include "check/PairSets.h"

namespace Quorvane::Check {
namespace {

/// More pairs than these are not counted: nobody reads them, and there can be half a billion.
constexpr std::size_t MostPairs = 100'000;

bool HaveSameConditions(const RuleTable& rules, std::size_t first, std::size_t second) {
    for (std::size_t input = 0; input < rules.Inputs(); ++input) {
        if (rules.ConditionOf(first, input) != rules.ConditionOf(second, input)) {
            return false;
        }
    }
    return true;
}

bool Holds(const std::vector<std::uint32_t>& conditions, std::uint32_t condition) {
    return condition == RuleTable::None || std::ranges::binary_search(conditions, condition);
}

/// The widest range on which two conditions hold, fully or to some degree.
std::optional<Range> CommonRange(const Axis& axis, std::vector<std::uint32_t> Piece::*holding,
                                 std::uint32_t first, std::uint32_t second) {
    std::optional<Range> widest;
    Range range;
    bool continues = false;
    for (const Piece& piece : axis.Pieces) {
        if (!Holds(piece.*holding, first) || !Holds(piece.*holding, second)) {
            continues = false;
            continue;
        }
        range = {continues ? range.First : piece.Values.First, piece.Values.Last};
        continues = true;
        if (!widest || ShareOf(axis, range) > ShareOf(axis, *widest)) {
            widest = range;
        }
    }
    return widest;
}

/// A value at which two conditions on an input hold, fully where they do together.
double CommonValue(const Axis& axis, std::uint32_t first, std::uint32_t second) {
    const auto full = CommonRange(axis, &Piece::Full, first, second);
    const auto common = full ? full : CommonRange(axis, &Piece::Active, first, second);
    return common ? MiddleOf(*common) : axis.Lower;
}

class PairComparison {
  public:
    PairComparison(const RuleTable& rules, const CheckLimits& limits, CheckResult& result)
        : rules_(rules), limits_(limits), result_(result), sets_(rules) {}

    void Run() {
        for (std::size_t rule = 0; rule < rules_.Rules(); ++rule) {
            if (rules_.CanFire(rule)) {
                LookForContradictions(rule);
                LookForCover(rule);
            }
        }
    }

  private:
    void LookForContradictions(std::size_t rule) {
        if (pairs_ >= MostPairs) {
            return;
        }
        RuleSet contradicting = sets_.Meeting(rule);
        contradicting.Remove(sets_.Agreeing(rule));
        contradicting.ForEach([&](std::size_t other) {
            if (other > rule && pairs_ < MostPairs) {
                ++pairs_;
                Report(rule, other);
            }
        });
    }

    void Report(std::size_t first, std::size_t second) {
        if (HaveSameConditions(rules_, first, second)) {
            Add(FindingKind::Conflict, Severity::Warning, first, second);
        } else if (IsFallback(first, second)) {
            Add(FindingKind::Fallback, Severity::Note, first, second);
        } else if (IsFallback(second, first)) {
            // NOLINTNEXTLINE(readability-suspicious-call-argument): here the second is the fallback
            Add(FindingKind::Fallback, Severity::Note, second, first);
        } else {
            Add(FindingKind::Overlap, Severity::Warning, first, second);
        }
    }

    bool IsFallback(std::size_t general, std::size_t special) const {
        return rules_.WeightOf(general) < rules_.WeightOf(special) &&
               sets_.CoversConditions(general, special);
    }

    void LookForCover(std::size_t rule) {
        std::optional<std::size_t> cover;
        if (rules_.WeightOf(rule) < 0 || !Concludes(rule)) {
            return;
        }
        sets_.Covering(rule).ForEach([&](std::size_t other) {
            // Of two rules that cover each other, the later one is reported.
            if (!cover && other != rule &&
                (other < rule || !sets_.Covering(other).Contains(rule))) {
                cover = other;
            }
        });
        if (cover) {
            Add(FindingKind::RuleCovered, Severity::Warning, rule, *cover);
        }
    }

    bool Concludes(std::size_t rule) const {
        for (std::size_t output = 0; output < rules_.Outputs.size(); ++output) {
            if (rules_.PositionOf(rule, output)) {
                return true;
            }
        }
        return false;
    }

    void Add(FindingKind kind, Severity level, std::size_t first, std::size_t second) {
        if (counts_[kind]++ >= limits_.Pairs) {
            ++result_.Omitted[kind];
            return;
        }
        Finding& finding = result_.Findings.emplace_back();
        finding.Kind = kind;
        finding.Level = level;
        finding.Rules = {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(second)};
        finding.Output = OutputInDispute(first, second);
        for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
            finding.Example.push_back(CommonValue(rules_.Axes[input],
                                                  rules_.ConditionOf(first, input),
                                                  rules_.ConditionOf(second, input)));
        }
    }

    /// The first output about which two rules conclude differently.
    std::optional<std::uint32_t> OutputInDispute(std::size_t first, std::size_t second) const {
        for (std::size_t output = 0; output < rules_.Outputs.size(); ++output) {
            const auto& one = rules_.PositionOf(first, output);
            const auto& other = rules_.PositionOf(second, output);
            if (one && other && *one != *other) {
                return rules_.Outputs[output].Variable;
            }
        }
        return std::nullopt;
    }

    const RuleTable& rules_;
    const CheckLimits& limits_;
    CheckResult& result_;
    PairSets sets_;
    std::size_t pairs_ = 0;
    std::map<FindingKind, std::size_t> counts_;
};

} // namespace

void ComparePairs(const RuleTable& rules, const CheckLimits& limits, CheckResult& result) {
    PairComparison(rules, limits, result).Run();
}

} // namespace Quorvane::Check
