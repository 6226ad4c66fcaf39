// SPDX-License-Identifier: MIT
// From rule texts to the engine's tables.
#include "engine/PrepareRuleBase.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "engine/ArrangeRules.h"
#include "engine/ElementIndex.h"
#include "engine/EngineRoutine.h"
#include "engine/PreparedRules.h"
#include "shared/Markers.h"
#include "shared/NumberText.h"

namespace Quorvane::RunTime {
namespace {

/// Numbers by exact name.
using NameIndex = StringKeyedDictionary<std::uint32_t>;

struct NamedTerm {
    TextView Variable;
    TextView Term;
};

/// What an antecedent names; no term stands for "[NONE]".
struct Antecedent {
    std::uint32_t Input;
    std::optional<std::uint32_t> Term;
};

/// What a consequent says; no point stands for "[NONE]".
struct Consequent {
    std::uint32_t Output;
    std::optional<double> Point;
};

/// Raises SubscriptOutOfRange when a text did not split into enough pieces.
void RequirePieces(const std::vector<TextView>& pieces, std::size_t count) {
    if (pieces.size() < count) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
}

/// Adds the rules one by one and keeps the indices by which they find names again.
class TableBuilder {
  public:
    void AddRule(TextView rule) {
        Split(rule, u':', pieces_);
        RequirePieces(pieces_, 2);
        const TextView body = pieces_[0];
        const double weight = ParseNumber(pieces_[1]);
        Split(body, u'/', pieces_);
        RequirePieces(pieces_, 2);
        const TextView antecedents = pieces_[0];
        const TextView consequents = pieces_[1];
        AddAntecedents(antecedents);
        AddConsequents(consequents);
        tables_->EndRule(weight);
    }

    std::shared_ptr<PreparedRules> Finish() {
        PlaceDegrees();
        tables_->Sums.resize(tables_->UsedOutputs.size());
        tables_->NamesEveryOutput = !addsToUnknownOutput_ && NamesEveryOutput(*tables_);
        tables_->Selector = RuleSelector(*tables_);
        EvenOutAntecedents(*tables_);
        return std::move(tables_);
    }

  private:
    NamedTerm ParseElement(TextView element, char16_t mark) {
        Split(element, mark, pieces_);
        RequirePieces(pieces_, 2);
        return {pieces_[0], pieces_[1]};
    }

    /// Raises DuplicateKey when the rule being added has named the variable already. For each
    /// variable there is the number of the rule that has named it last, counted from 1.
    void RequireFirstMention(std::vector<std::size_t>& lastMentions, std::uint32_t variable) {
        const std::size_t rule = tables_->RuleCount() + 1;
        if (std::exchange(lastMentions[variable], rule) == rule) {
            throw FisError(RuntimeError::DuplicateKey);
        }
    }

    void AddAntecedents(TextView list) {
        Split(list, u';', elements_);
        for (std::size_t place = 0; place < elements_.size(); ++place) {
            const TextView element = elements_[place];
            const auto& [input, term] = antecedents_.Find(
                place, element, [this, element] { return ResolveAntecedent(element); });
            RequireFirstMention(inputMentions_, input);
            if (term) {
                tables_->Antecedents.push_back(*term);
            }
        }
    }

    Antecedent ResolveAntecedent(TextView element) {
        const auto [variable, term] = ParseElement(element, u'>');
        const std::uint32_t input = UseInput(variable);
        if (term == NoneMarker) {
            return {input, std::nullopt};
        }
        return {input, UseTerm(input, term)};
    }

    /// The index of a used input, which is added now if it is new.
    std::uint32_t UseInput(TextView name) {
        if (const std::uint32_t* const input = inputs_.Find(name)) {
            return *input;
        }
        const auto next = static_cast<std::uint32_t>(tables_->UsedInputs.size());
        tables_->UsedInputs.push_back({.Name = Text(name)});
        terms_.emplace_back(KeyComparison::Exact);
        inputMentions_.push_back(0);
        return inputs_.Add(Text(name), next);
    }

    /// The number of a used term in the order of first use, which it is given now if it is new.
    std::uint32_t UseTerm(std::uint32_t input, TextView name) {
        if (const std::uint32_t* const used = terms_[input].Find(name)) {
            return *used;
        }
        std::vector<Text>& terms = tables_->UsedInputs[input].Terms;
        places_.push_back({input, static_cast<std::uint32_t>(terms.size())});
        terms.emplace_back(name);
        return terms_[input].Add(Text(name), static_cast<std::uint32_t>(places_.size() - 1));
    }

    /// Gives the degrees of each input's terms places side by side, and the antecedents these
    /// places instead of the numbers of first use.
    void PlaceDegrees() {
        std::uint32_t next = 0;
        for (UsedInput& input : tables_->UsedInputs) {
            input.FirstTerm = next;
            input.TermCount = static_cast<std::uint32_t>(input.Terms.size());
            next += input.TermCount + input.TermCount % 2;
        }
        tables_->Degrees.assign(next + 1, 1);
        tables_->BoundTerms.resize(next);
        tables_->Trapezoids.resize(next / 2);
        for (std::uint32_t& antecedent : tables_->Antecedents) {
            const TermPlace& place = places_[antecedent];
            antecedent = tables_->UsedInputs[place.Input].FirstTerm + place.Term;
        }
    }

    void AddConsequents(TextView list) {
        tables_->LastRuleOutputs.clear();
        tables_->AddsToUnknownOutput = addsToUnknownOutput_;
        Split(list, u';', elements_);
        for (std::size_t place = 0; place < elements_.size(); ++place) {
            const TextView element = elements_[place];
            const auto& [output, point] = consequents_.Find(
                place, element, [this, element] { return ResolveConsequent(element); });
            RequireFirstMention(outputMentions_, output);
            // Names that come up later than in rule 0 have the higher numbers.
            const std::uint32_t index =
                output < tables_->UsedOutputs.size() ? output : RuleTables::UnknownOutput;
            tables_->LastRuleOutputs.push_back(index);
            if (point) {
                AddConsequent(index, *point);
            }
        }
    }

    Consequent ResolveConsequent(TextView element) {
        const auto [output, term] = ParseElement(element, u'<');
        const std::optional<double> point = ConsequentPoint(output, term);
        return {NumberOfOutput(output), point};
    }

    /// The number of an output in the order of first mention.
    std::uint32_t NumberOfOutput(TextView name) {
        if (const std::uint32_t* const number = outputs_.Find(name)) {
            return *number;
        }
        if (tables_->RuleCount() == 0) {
            tables_->UsedOutputs.push_back({.Name = Text(name)});
        }
        outputMentions_.push_back(0);
        return outputs_.Add(Text(name), static_cast<std::uint32_t>(outputs_.Count()));
    }

    void AddConsequent(std::uint32_t output, double point) {
        if (output == RuleTables::UnknownOutput) {
            addsToUnknownOutput_ = true;
        } else {
            tables_->Points.push_back(point);
            tables_->Outputs.push_back(output);
        }
    }

    struct TermPlace {
        std::uint32_t Input;
        std::uint32_t Term;
    };

    std::shared_ptr<PreparedRules> tables_ = std::make_shared<PreparedRules>();

    ElementIndex<Antecedent> antecedents_;
    ElementIndex<Consequent> consequents_;
    NameIndex inputs_{KeyComparison::Exact};
    /// For each input, its terms with their numbers; for each number, where the term belongs.
    std::vector<NameIndex> terms_;
    std::vector<TermPlace> places_;
    NameIndex outputs_{KeyComparison::Exact};
    std::vector<std::size_t> inputMentions_;
    std::vector<std::size_t> outputMentions_;
    /// Whether some rule so far says something of an output that rule 0 does not name.
    bool addsToUnknownOutput_ = false;

    std::vector<TextView> pieces_;
    std::vector<TextView> elements_;
};

std::shared_ptr<PreparedRules> BuildTables(const RuleDictionary& rules) {
    TableBuilder builder;
    for (const auto& [rule, value] : rules) {
        builder.AddRule(rule);
    }
    return builder.Finish();
}

/// New outputs, each at its default as it is, whatever its type.
std::shared_ptr<OwnValueDictionary> InitialOutputs(const RuleTables& tables) {
    auto outputs = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
    const std::shared_ptr<ValueDictionary> defaults = Definition::State().DefaultOutputValues;
    for (const UsedOutput& output : tables.UsedOutputs) {
        outputs->Put(output.Name, Definition::Require(defaults).Get(output.Name));
    }
    return outputs;
}

} // namespace

void PrepareRuleBase() {
    RunRoutine(Message::InvalidRule, [] {
        const auto former = Definition::State().Tables;
        auto tables = BuildTables(Definition::Require(Definition::State().RuleBase));
        auto outputs = InitialOutputs(*tables);
        // Reading a host's defaults may run code that loads another system: its tables stay.
        if (Definition::State().Tables == former) {
            Definition::State().Tables = std::move(tables);
            Definition::State().OutputValues = std::move(outputs);
        }
    });
}

std::optional<double> ConsequentPoint(TextView output, TextView term) {
    return RunRoutine(Message::InvalidOutputVariable, [&]() -> std::optional<double> {
        if (term == NoneMarker) {
            return std::nullopt;
        }
        const auto& outputs = Definition::Require(Definition::State().OutputVariables);
        return outputs.At(output).MF.At(term).Points.front();
    });
}

} // namespace Quorvane::RunTime
