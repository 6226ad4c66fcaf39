// SPDX-License-Identifier: MIT
// From rule texts to the engine's tables.
#include "engine/PrepareRuleBase.h"

#include <memory>

#include "engine/EngineRoutine.h"
#include "engine/RuleTables.h"
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

/// Raises SubscriptOutOfRange when a text did not split into enough pieces.
void RequirePieces(const std::vector<TextView>& pieces, std::size_t count) {
    if (pieces.size() < count) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
}

/// Adds the rules one by one and keeps the indices by which they find names again.
class TableBuilder {
  public:
    explicit TableBuilder(std::size_t ruleCount) { tables_->Rules.reserve(ruleCount + 1); }

    void AddRule(TextView rule) {
        Split(rule, u':', pieces_);
        RequirePieces(pieces_, 2);
        const TextView body = pieces_[0];
        BeginRule(ParseNumber(pieces_[1]));
        Split(body, u'/', pieces_);
        RequirePieces(pieces_, 2);
        const TextView antecedents = pieces_[0];
        const TextView consequents = pieces_[1];
        AddAntecedents(antecedents);
        AddConsequents(consequents);
    }

    std::shared_ptr<RuleTables> Finish() {
        BeginRule(0);
        PlaceDegrees();
        tables_->Selector = RuleSelector(*tables_);
        return std::move(tables_);
    }

  private:
    void BeginRule(double weight) {
        tables_->Rules.push_back({weight, static_cast<std::uint32_t>(tables_->Antecedents.size()),
                                  static_cast<std::uint32_t>(tables_->Consequents.size())});
    }

    NamedTerm ParseElement(TextView element, char16_t mark) {
        Split(element, mark, pieces_);
        RequirePieces(pieces_, 2);
        return {pieces_[0], pieces_[1]};
    }

    /// Raises DuplicateKey when the rule being added has named the variable already.
    void RequireFirstMention(TextView variable) {
        for (const TextView earlier : named_) {
            if (earlier == variable) {
                throw FisError(RuntimeError::DuplicateKey);
            }
        }
        named_.push_back(variable);
    }

    void AddAntecedents(TextView list) {
        named_.clear();
        Split(list, u';', elements_);
        for (const TextView element : elements_) {
            const auto [variable, term] = ParseElement(element, u'>');
            RequireFirstMention(variable);
            const std::uint32_t used = UseTerm(variable, term);
            if (term != NoneMarker) {
                tables_->Antecedents.push_back(used);
            }
        }
    }

    /// The number of a used term in the order of first use, which it is given now if it is new.
    std::uint32_t UseTerm(TextView variable, TextView term) {
        const std::uint32_t* input = inputs_.Find(variable);
        if (!input) {
            const auto next = static_cast<std::uint32_t>(tables_->UsedInputs.size());
            input = &inputs_.Add(Text(variable), next);
            tables_->UsedInputs.push_back({.Name = Text(variable)});
            terms_.emplace_back(KeyComparison::Exact);
        }
        if (const std::uint32_t* const used = terms_[*input].Find(term)) {
            return *used;
        }
        std::vector<Text>& terms = tables_->UsedInputs[*input].Terms;
        places_.push_back({*input, static_cast<std::uint32_t>(terms.size())});
        terms.emplace_back(term);
        return terms_[*input].Add(Text(term), static_cast<std::uint32_t>(places_.size() - 1));
    }

    /// Gives the degrees of each input's terms places side by side, and the antecedents these
    /// places instead of the numbers of first use.
    void PlaceDegrees() {
        std::uint32_t next = 0;
        for (UsedInput& input : tables_->UsedInputs) {
            input.FirstDegree = next;
            next += static_cast<std::uint32_t>(input.Terms.size());
        }
        tables_->Degrees.assign(next, 1);
        for (std::uint32_t& antecedent : tables_->Antecedents) {
            const TermPlace& place = places_[antecedent];
            antecedent = tables_->UsedInputs[place.Input].FirstDegree + place.Term;
        }
    }

    void AddConsequents(TextView list) {
        const bool isFirstRule = tables_->Rules.size() == 1;
        named_.clear();
        tables_->LastRuleOutputs.clear();
        tables_->AddsToUnknownOutput = addsToUnknownOutput_;
        Split(list, u';', elements_);
        for (const TextView element : elements_) {
            const auto [output, term] = ParseElement(element, u'<');
            const std::optional<double> point = ConsequentPoint(output, term);
            RequireFirstMention(output);
            if (isFirstRule) {
                AddOutput(output);
            }
            const std::uint32_t* const found = outputs_.Find(output);
            const std::uint32_t index = found ? *found : RuleTables::UnknownOutput;
            tables_->LastRuleOutputs.push_back(index);
            if (point) {
                AddConsequent(index, *point);
            }
        }
    }

    void AddConsequent(std::uint32_t output, double point) {
        if (output == RuleTables::UnknownOutput) {
            addsToUnknownOutput_ = true;
        } else {
            tables_->Consequents.push_back({output, point});
        }
    }

    void AddOutput(TextView output) {
        outputs_.Add(Text(output), static_cast<std::uint32_t>(tables_->UsedOutputs.size()));
        tables_->UsedOutputs.push_back({.Name = Text(output)});
    }

    struct TermPlace {
        std::uint32_t Input;
        std::uint32_t Term;
    };

    std::shared_ptr<RuleTables> tables_ = std::make_shared<RuleTables>();

    NameIndex inputs_{KeyComparison::Exact};
    /// For each input, its terms with their numbers; for each number, where the term belongs.
    std::vector<NameIndex> terms_;
    std::vector<TermPlace> places_;
    NameIndex outputs_{KeyComparison::Exact};
    /// Whether some rule so far says something of an output that rule 0 does not name.
    bool addsToUnknownOutput_ = false;

    std::vector<TextView> pieces_;
    std::vector<TextView> elements_;
    std::vector<TextView> named_;
};

std::shared_ptr<RuleTables> BuildTables(const RuleDictionary& rules) {
    TableBuilder builder(rules.Count());
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
