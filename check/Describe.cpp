// SPDX-License-Identifier: MIT
// Findings in words.
#include "check/Describe.h"

#include <cmath>

#include "shared/NumberText.h"

namespace Quorvane::Check {
namespace {

Text Number(double value) {
    return NumberText(value);
}

Text Count(std::size_t count) {
    return Widen(std::to_string(count));
}

/// With three digits, which is enough of a measured number.
Text Rounded(double value) {
    if (value == 0 || !std::isfinite(value)) {
        return Number(value);
    }
    const double digits = 2 - std::floor(std::log10(std::abs(value)));
    const double unit = std::pow(10, std::abs(digits));
    return Number(digits > 0 ? std::round(value * unit) / unit : std::round(value / unit) * unit);
}

Text Percent(double share) {
    constexpr double PerHundred = 100;
    return Rounded(share * PerHundred) + u" %";
}

Text DescribeRange(const Range& range) {
    return range.First == range.Last ? Number(range.First)
                                     : Number(range.First) + u" to " + Number(range.Last);
}

/// The sentences about one finding.
class Description {
  public:
    Description(const System::FuzzySystem& system, const Finding& finding)
        : system_(system), finding_(finding) {}

    Text Sentence() const {
        switch (finding_.Kind) {
        case FindingKind::NoRules:
            return u"There are no rules, and so there is no output";
        case FindingKind::FailingRule:
            return Rule(0) + u" names " + Variable() +
                   u", which rule 1 does not name in this way: every cycle fails";
        case FindingKind::OutputNotSet:
            return u"The last rule does not name " + Variable() +
                   u": it keeps its default, whatever fires";
        case FindingKind::BoundsNotAscending:
            return Variable() + u": the lower bound is not below the upper bound";
        case FindingKind::PointsNotAscending:
            return VariableAndTerm() + u": the points are not in ascending order";
        case FindingKind::FlankTooWide:
            return VariableAndTerm() + u": a flank is too wide for numbers, and cycles fail on it";
        case FindingKind::Gap:
            return Gap();
        case FindingKind::Conflict:
            return RulesDiffer(u" have the same conditions");
        case FindingKind::Overlap:
            return RulesDiffer(u" fire fully together");
        case FindingKind::Fallback:
            return Rule(0) + u" is more general than rule " + Count(finding_.Rules[1] + 1) +
                   u", of less weight, and concludes differently about " + Variable();
        case FindingKind::RuleCovered:
            return Rule(0) + u" only adds weight: rule " + Count(finding_.Rules[1] + 1) +
                   u" concludes the same and fires wherever it does";
        default:
            return OtherSentence();
        }
    }

  private:
    Text OtherSentence() const {
        switch (finding_.Kind) {
        case FindingKind::WeightZero:
            return Rule(0) + u" never fires: its weight is 0";
        case FindingKind::WeightOutOfRange:
            return Rule(0) + u" has the weight " + Number(finding_.Figure) +
                   u", which is not between 0 and 1";
        case FindingKind::ConditionNeverHolds:
            return Rule(0) + u" never fires: no value of " + Variable() +
                   u" within its bounds is " + Term();
        case FindingKind::NoConclusion:
            return Rule(0) + u" concludes nothing";
        case FindingKind::UnusedVariable:
            return Text(u"No rule uses the ") + (finding_.Input ? u"input " : u"output ") +
                   Variable();
        case FindingKind::UnusedTerm:
            return u"No rule uses " + VariableAndTerm();
        case FindingKind::TermOutsideUniverse:
            return VariableAndTerm() + u": no value within the bounds belongs to it";
        case FindingKind::UncoveredUniverse:
            return Variable() + u": no term holds " + Regions(u"its range", u"values");
        case FindingKind::PositionOutsideUniverse:
            return VariableAndTerm() + u" is at " + Number(finding_.Figure) +
                   u", beyond the bounds";
        case FindingKind::RangeNotReached:
            return NotReached();
        case FindingKind::Jump:
            return Variable(finding_.Output) + u" jumps by " + Rounded(finding_.Figure) + u" (" +
                   Percent(finding_.Share) + u" of its range) at a value of " + Variable();
        case FindingKind::Steepest:
            return Variable(finding_.Output) + u" is steepest along " + Variable() + u": " +
                   Rounded(finding_.Figure) + u" (" + Percent(finding_.Share) +
                   u" of its range) over 1 % of that";
        default:
            return {};
        }
    }

    Text Gap() const {
        Text outputs;
        for (const std::uint32_t output : finding_.Outputs) {
            outputs += (outputs.empty() ? u"" : u", ") + system_.Outputs[output].Name;
        }
        return u"No rule fires for " + outputs + u' ' + Regions(u"the input space", u"points");
    }

    /// "in 20 % of the input space; the largest of 3 regions is Level 40 to 60".
    Text Regions(TextView whole, TextView single) const {
        const Text about = finding_.IsExact ? u"" : u"about ";
        Text text = finding_.Share > 0
                        ? u"in " + about + Percent(finding_.Share) + u" of " + Text(whole)
                        : u"at single " + Text(single);
        text += finding_.Count == 1 && finding_.IsExact ? u": "
                : !finding_.IsExact
                    ? u"; one of the regions is "
                    : u"; the largest of " + Count(finding_.Count) + u" regions is ";
        return text + Region();
    }

    /// The ranges of a region, but those of whole inputs.
    Text Region() const {
        Text text;
        const std::size_t first = finding_.Input.value_or(0);
        for (std::size_t i = 0; i < finding_.Region.size(); ++i) {
            const auto& input = system_.Inputs[first + i];
            if (finding_.Region[i] != Range{input.Lower, input.Upper}) {
                text += (text.empty() ? u"" : u", ") + input.Name + u' ' +
                        DescribeRange(finding_.Region[i]);
            }
        }
        return text.empty() ? u"everything" : text;
    }

    Text RulesDiffer(TextView how) const {
        return u"Rules " + Count(finding_.Rules[0] + 1) + u" and " + Count(finding_.Rules[1] + 1) +
               Text(how) + u" and conclude differently about " + Variable();
    }

    Text NotReached() const {
        const Range& reached = finding_.Region.front();
        const bool isUpper = finding_.Figure > reached.Last;
        return Variable() + u" never comes near its bound " + Number(finding_.Figure) + u": " +
               (finding_.IsExact ? u"" : u"as far as samples show, ") +
               (isUpper ? u"the highest value is " : u"the lowest value is ") +
               Rounded(isUpper ? reached.Last : reached.First);
    }

    Text Rule(std::size_t place) const { return u"Rule " + Count(finding_.Rules[place] + 1); }

    /// The input where there is one, else the output.
    Text Variable() const {
        return finding_.Input ? system_.Inputs[*finding_.Input].Name : Variable(finding_.Output);
    }

    Text Variable(const std::optional<std::uint32_t>& output) const {
        return output ? system_.Outputs[*output].Name : Text();
    }

    Text Term() const {
        return finding_.Input ? system_.Inputs[*finding_.Input].Terms[*finding_.Term].Name
                              : system_.Outputs[*finding_.Output].Terms[*finding_.Term].Name;
    }

    Text VariableAndTerm() const { return Variable() + u' ' + Term(); }

    const System::FuzzySystem& system_;
    const Finding& finding_;
};

} // namespace

Text Describe(const System::FuzzySystem& system, const Finding& finding) {
    return Description(system, finding).Sentence();
}

Text DescribeExample(const System::FuzzySystem& system, const Finding& finding) {
    // Of one input alone, or of all.
    const bool isOfOne = finding.Example.size() != system.Inputs.size() ||
                         finding.Kind == FindingKind::UncoveredUniverse;
    const std::size_t first = isOfOne ? finding.Input.value_or(0) : 0;
    Text text;
    for (std::size_t i = 0; i < finding.Example.size(); ++i) {
        text += (text.empty() ? u"" : u", ") + system.Inputs[first + i].Name + u" = " +
                Number(finding.Example[i]);
    }
    return text;
}

} // namespace Quorvane::Check
