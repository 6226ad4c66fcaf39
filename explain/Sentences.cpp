// SPDX-License-Identifier: MIT
// What happens in a cycle, in words and formulas.
#include "explain/Sentences.h"

#include "shared/NumberText.h"

namespace Quorvane::Explain {
namespace {

using System::Clause;
using System::FuzzySystem;

/// A formula with more summands is cut short.
constexpr std::size_t MostSummands = 12;

/// "Level IS High AND Inflow IS Large", without "[NONE]".
template <class Term>
Text Statements(const std::vector<System::Variable<Term>>& variables,
                const std::vector<Clause>& clauses) {
    Text text;
    for (const Clause& clause : clauses) {
        if (clause.Term) {
            text += text.empty() ? u"" : u" AND ";
            text += NameIn(variables, clause);
            text += u" IS " + variables[clause.Variable].Terms[*clause.Term].Name;
        }
    }
    return text;
}

Text RuleNumber(std::size_t rule) {
    return u"rule " + Widen(std::to_string(rule + 1));
}

/// A negative number in parentheses, where a sign stands before it.
Text Factor(double number) {
    return number < 0 ? u'(' + NumberText(number) + u')' : NumberText(number);
}

/// The summands joined by " + ", at most so many.
template <class Summand>
Text Sum(const std::vector<Contribution>& contributions, Summand summand) {
    Text text;
    for (std::size_t i = 0; i < contributions.size() && i < MostSummands; ++i) {
        text += (i == 0 ? u"" : u" + ") + summand(contributions[i]);
    }
    if (contributions.size() > MostSummands) {
        text += u" + ... " + Widen(std::to_string(contributions.size() - MostSummands)) + u" more";
    }
    return text;
}

} // namespace

Text RuleSentence(const FuzzySystem& system, const System::Rule& rule) {
    const Text conditions = Statements(system.Inputs, rule.Antecedents);
    const Text conclusions = Statements(system.Outputs, rule.Consequents);
    Text sentence = conditions.empty() ? Text(u"ALWAYS ") : u"IF " + conditions + u" THEN ";
    sentence += conclusions.empty() ? u"nothing" : conclusions;
    return rule.Weight == 1 ? sentence : sentence + u" WITH " + NumberText(rule.Weight);
}

Text StrengthFormula(const FuzzySystem& system, const Evaluation& evaluation, std::size_t rule) {
    Text formula = NumberText(system.Rules[rule].Weight);
    for (const Clause& clause : system.Rules[rule].Antecedents) {
        if (clause.Term) {
            const auto& degree = evaluation.Inputs[clause.Variable].Degrees[*clause.Term];
            formula += u" x " + (degree ? NumberText(*degree) : Text(u"?"));
        }
    }
    return formula + u" = " + NumberText(evaluation.Strengths[rule]);
}

Text OutputFormula(const OutputState& output) {
    const auto& contributions = output.Contributions;
    const Text numerator = Sum(contributions, [](const Contribution& one) {
        return Factor(one.Strength) + u" x " + Factor(one.Position);
    });
    const Text denominator =
        Sum(contributions, [](const Contribution& one) { return Factor(one.Strength); });
    return u'(' + numerator + u") / (" + denominator + u") = " + NumberText(output.Sum.Numerator) +
           u" / " + NumberText(output.Sum.Denominator) + u" = " + NumberText(*output.Value);
}

Text CauseSentence(Cause cause) {
    switch (cause) {
    case Cause::RulesFire:
        return u"rules fire";
    case Cause::CycleFailed:
        return u"the cycle failed";
    case Cause::NotInLastRule:
        return u"the last rule does not name the output, so no cycle sets it";
    case Cause::NoRuleChoosesTerm:
        return u"no rule chooses a term of the output";
    case Cause::StrengthsCancel:
        return u"the strengths of the rules sum to 0";
    default:
        return u"no rule fires";
    }
}

Text BlockerSentence(const FuzzySystem& system, const Evaluation& evaluation,
                     const Blocker& blocker) {
    if (blocker.Kind == BlockerKind::Weight) {
        return u"its weight is 0";
    }
    if (blocker.Kind == BlockerKind::Underflow) {
        return u"its strength is too small for a number";
    }
    const System::InputVariable& input = system.Inputs[*blocker.Input];
    const Text value = input.Name + u" = " + NumberText(*evaluation.Inputs[*blocker.Input].Value);
    if (blocker.Kind == BlockerKind::OutsideUniverse) {
        return value + u" is outside " + NumberText(input.Lower) + u" to " +
               NumberText(input.Upper);
    }
    return value + u" is not " + input.Terms[*blocker.Term].Name;
}

Text FailureSentence(const FuzzySystem& system, const Failure& failure) {
    switch (failure.Kind) {
    case FailureKind::NoValue:
        return u"the input " + system.Inputs[*failure.Input].Name + u" has no value";
    case FailureKind::FlankTooWide:
        return u"a flank of the term " + system.Inputs[*failure.Input].Terms[*failure.Term].Name +
               u" of the input " + system.Inputs[*failure.Input].Name +
               u" is wider than the largest number";
    case FailureKind::OutputNotInFirstRule:
        return RuleNumber(*failure.Rule) + u" names an output that the first rule does not name";
    default:
        return failure.Rule
                   ? u"a sum is beyond the range of numbers at " + RuleNumber(*failure.Rule)
                   : Text(u"an average is beyond the range of numbers");
    }
}

} // namespace Quorvane::Explain
