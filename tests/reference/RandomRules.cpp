// SPDX-License-Identifier: MIT
// The rules of fuzzy systems made up at random.
#include "tests/reference/RandomRules.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "shared/Markers.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane::Reference {
namespace {

Text MakeWeight(Choices& choices) {
    switch (choices.Below(12)) {
    case 0:
        return u"0";
    case 1:
        return u"-0.5";
    case 2:
        return u"1E-300";
    case 3:
        return u"1E300";
    case 4:
    case 5:
    case 6:
        return Widen(std::to_string(choices.Between(1, 999))) + u"E-3";
    default:
        return u"1";
    }
}

/// Writes the rules of a system that has its variables.
class RuleMaker {
  public:
    RuleMaker(Choices& choices, const SystemLimits& limits,
              const std::vector<VariableNames>& inputs, const std::vector<VariableNames>& outputs)
        : choices_(choices), inputs_(inputs), outputs_(outputs), share_(choices.Below(60)),
          oddNames_(choices.Percent(limits.OddNames)),
          oddOutputs_(choices.Percent(limits.OddOutputs)) {}

    // Choices are made in statements of their own: the order within an expression is the
    // compiler's.
    Text Rule() { return Conclude(Elements(inputs_, u'>', false)); }

    /// So many of the combinations of terms, the last input's fastest; to some grids a variable
    /// that takes no part is a term, too. Some grids have holes, and some are out of order.
    std::vector<Text> Grid(std::uint32_t most) {
        const bool hasFreePlaces = choices_.Percent(30);
        const std::uint32_t holes = choices_.Percent(70) ? 0 : choices_.Below(40);
        std::vector<Text> rules;
        for (std::uint32_t number = 0; rules.size() < most; ++number) {
            const auto antecedents = Combination(number, hasFreePlaces);
            if (!antecedents) {
                break;
            }
            if (!choices_.Percent(holes)) {
                rules.push_back(Conclude(*antecedents));
            }
        }
        for (std::uint32_t swaps = choices_.Percent(60) ? 0 : choices_.Below(20); swaps > 0;
             --swaps) {
            const auto place = [&] {
                return choices_.Below(static_cast<std::uint32_t>(rules.size()));
            };
            const std::uint32_t one = place();
            const std::uint32_t other = place();
            if (!rules.empty()) {
                std::swap(rules[one], rules[other]);
            }
        }
        return rules;
    }

  private:
    /// The antecedents of a combination; nothing after the last.
    std::optional<Text> Combination(std::uint32_t number, bool hasFreePlaces) const {
        Text elements;
        for (std::size_t i = inputs_.size(); i-- > 0;) {
            const VariableNames& input = inputs_[i];
            const auto terms = static_cast<std::uint32_t>(input.Terms.size());
            const std::uint32_t places = terms + (hasFreePlaces ? 1 : 0);
            const std::uint32_t place = number % places;
            number /= places;
            const Text term = place == terms ? Text(NoneMarker) : input.Terms[place];
            elements.insert(0, input.Name + u'>' + term + (elements.empty() ? u"" : u";"));
        }
        return number == 0 ? std::optional(elements) : std::nullopt;
    }

    Text Conclude(Text rule) {
        rule += u'/';
        rule += Elements(outputs_, u'<', oddOutputs_);
        rule += u':';
        rule += MakeWeight(choices_);
        return rule;
    }

    Text Spelled(const Text& name) {
        if (!oddNames_ || !choices_.Percent(10)) {
            return name;
        }
        Text upper;
        std::ranges::transform(name, std::back_inserter(upper), FoldCase);
        return upper;
    }

    Text Elements(const std::vector<VariableNames>& variables, char16_t mark, bool mayOmit) {
        Text elements;
        for (const VariableNames& variable : variables) {
            if (mayOmit && choices_.Percent(20)) {
                continue;
            }
            elements += elements.empty() ? u"" : u";";
            elements += Spelled(variable.Name);
            elements += mark;
            elements += choices_.Percent(share_) ? Text(NoneMarker)
                                                 : Spelled(choices_.Pick(variable.Terms));
        }
        return elements;
    }

    Choices& choices_;
    const std::vector<VariableNames>& inputs_;
    const std::vector<VariableNames>& outputs_;
    /// How often a variable takes no part in a rule, in percent.
    std::uint32_t share_;
    bool oddNames_;
    bool oddOutputs_;
};

const std::vector<Text>& BadRules() {
    static const std::vector<Text> rules = {
        u"",  u"x",   u"a>b:1",         u"a>b/c<d", u"a>b/c<d:", u"a>b/c<d:x",
        u":", u"/:1", u"a>b;a>c/c<d:1", u"a/c<d:1", u"a>b/c:1",  u"a>b/c<d:1E999",
    };
    return rules;
}

} // namespace

// Choices are made in statements of their own: the order within an expression is the compiler's.
Text MakeRules(Choices& choices, const SystemLimits& limits,
               const std::vector<VariableNames>& inputs,
               const std::vector<VariableNames>& outputs) {
    RuleMaker maker(choices, limits, inputs, outputs);
    StringKeyedDictionary<bool> rules(KeyComparison::IgnoreCase);
    const std::uint32_t count = choices.Percent(2) ? 0 : 1 + choices.Below(limits.Rules);
    if (limits.Grids != 0 && choices.Percent(limits.Grids)) {
        for (const Text& rule : maker.Grid(count)) {
            rules.Put(rule, true);
        }
    } else {
        for (std::uint32_t i = 0; i < count; ++i) {
            rules.Put(maker.Rule(), true);
        }
    }
    if (choices.Percent(limits.BadRules)) {
        rules.Put(choices.Pick(BadRules()), true);
    }
    Text text;
    for (const auto& [rule, unused] : rules) {
        text += (text.empty() ? u"" : u"|") + rule;
    }
    return text;
}

} // namespace Quorvane::Reference
