// SPDX-License-Identifier: MIT
// Where no rule fires.
#include "check/FindGaps.h"

#include <algorithm>
#include <map>
#include <utility>

#include "check/Draw.h"
#include "check/GapSearch.h"
#include "check/RuleSet.h"

namespace Quorvane::Check {
namespace {

using Classes = std::vector<std::vector<ActiveClass>>;

/// The rules that can fire and conclude something about an output.
std::vector<std::uint32_t> RulesFor(const RuleTable& rules, std::size_t output) {
    std::vector<std::uint32_t> firing;
    for (std::uint32_t rule = 0; rule < rules.Rules(); ++rule) {
        if (rules.CanFire(rule) && rules.PositionOf(rule, output)) {
            firing.push_back(rule);
        }
    }
    return firing;
}

/// The classes of all inputs by the conditions of these rules.
Classes ClassesFor(const RuleTable& rules, const std::vector<std::uint32_t>& firing) {
    Classes classes;
    for (std::size_t input = 0; input < rules.Inputs(); ++input) {
        const Axis& axis = rules.Axes[input];
        std::vector<bool> marked(axis.Conditions.size());
        for (const std::uint32_t rule : firing) {
            if (const auto condition = rules.ConditionOf(rule, input);
                condition != RuleTable::None) {
                marked[condition] = true;
            }
        }
        classes.push_back(ClassesOf(axis, marked));
    }
    return classes;
}

/// Draws combinations of classes and looks whether a rule fires in them.
class GapSampler {
  public:
    GapSampler(const RuleTable& rules, const std::vector<std::uint32_t>& firing,
               const Classes& classes)
        : rules_(rules), classes_(classes), firing_(rules.Rules()) {
        for (const std::uint32_t rule : firing) {
            firing_.Add(rule);
        }
        for (std::size_t input = 0; input < rules.Inputs(); ++input) {
            auto& sets = sets_.emplace_back();
            for (const ActiveClass& each : classes[input]) {
                sets.push_back(RulesWith(rules, input, each.Active));
            }
        }
    }

    /// The gaps among so many points that are spread evenly over the universe, and among as many
    /// that are spread evenly over the classes, which finds those of single values.
    GapsFound Run(std::size_t samples) {
        GapsFound found;
        std::size_t gaps = 0;
        for (std::size_t i = 0; i < samples; ++i) {
            if (IsGap([this](const auto& classes) { return DrawByShare(classes); })) {
                ++gaps;
                Note(found);
            }
            if (IsGap([this](const auto& classes) { return draw_.Below(classes.size()); })) {
                Note(found);
            }
        }
        found.Share =
            static_cast<double>(gaps) / static_cast<double>(std::max<std::size_t>(samples, 1));
        found.IsComplete = false;
        return found;
    }

  private:
    template <class Choose>
    bool IsGap(Choose choose) {
        left_ = firing_;
        chosen_.clear();
        for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
            const auto& classes = classes_[input];
            chosen_.push_back(classes.empty() ? 0 : choose(classes));
            if (!classes.empty()) {
                left_.KeepThoseIn(sets_[input][chosen_.back()]);
            }
        }
        return left_.IsEmpty();
    }

    std::size_t DrawByShare(const std::vector<ActiveClass>& classes) {
        double left = draw_.Share();
        for (std::size_t i = 0; i < classes.size(); ++i) {
            left -= classes[i].Share;
            if (left < 0) {
                return i;
            }
        }
        return classes.size() - 1;
    }

    void Note(GapsFound& found) const {
        ++found.Count;
        if (!found.Largest.empty()) {
            return;
        }
        for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
            const Axis& axis = rules_.Axes[input];
            found.Largest.push_back(classes_[input].empty()
                                        ? Range{axis.Lower, axis.Upper}
                                        : classes_[input][chosen_[input]].Widest);
        }
    }

    const RuleTable& rules_;
    const Classes& classes_;
    RuleSet firing_;
    RuleSet left_{0};
    std::vector<std::vector<RuleSet>> sets_;
    std::vector<std::size_t> chosen_;
    Draw draw_;
};

/// The gaps between these rules: all of them or, where the steps do not suffice, what they and
/// samples have found.
GapsFound GapsBetween(const RuleTable& rules, const std::vector<std::uint32_t>& firing,
                      const CheckLimits& limits) {
    const Classes classes = ClassesFor(rules, firing);
    GapsFound found = GapSearch(rules, classes, limits.Steps).Run(firing);
    if (!found.IsComplete) {
        const GapsFound sampled = GapSampler(rules, firing, classes).Run(limits.Samples);
        found.Share = std::max(found.Share, sampled.Share);
        if (found.Count == 0) {
            found = sampled;
        }
    }
    return found;
}

} // namespace

std::vector<Finding> FindGaps(const RuleTable& rules, const CheckLimits& limits) {
    // Outputs about which the same rules conclude have the same gaps.
    std::map<std::vector<std::uint32_t>, std::vector<std::uint32_t>> groups;
    for (std::size_t output = 0; output < rules.Outputs.size(); ++output) {
        groups[RulesFor(rules, output)].push_back(rules.Outputs[output].Variable);
    }
    CheckLimits each = limits;
    each.Steps /= std::max<std::size_t>(groups.size(), 1);
    std::vector<Finding> findings;
    for (auto& [firing, outputs] : groups) {
        const GapsFound found = GapsBetween(rules, firing, each);
        if (found.Count == 0) {
            continue;
        }
        Finding& finding = findings.emplace_back();
        finding.Kind = FindingKind::Gap;
        finding.Level = Severity::Warning;
        finding.Outputs = std::move(outputs);
        finding.Region = found.Largest;
        for (const Range& range : found.Largest) {
            finding.Example.push_back(MiddleOf(range));
        }
        finding.Count = found.Count;
        finding.Share = std::min(found.Share, 1.0);
        finding.IsExact = found.IsComplete;
    }
    return findings;
}

} // namespace Quorvane::Check
