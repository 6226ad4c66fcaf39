// SPDX-License-Identifier: MIT
// From rule texts to the engine's tables.
#include "engine/PrepareRuleBase.h"

#include "engine/EngineRoutine.h"
#include "engine/RuleTables.h"
#include "shared/Markers.h"
#include "shared/NumberText.h"

namespace Quorvane::RunTime {
namespace {

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
    explicit TableBuilder(std::size_t ruleCount) {
        tables_.RuleWeights.reserve(ruleCount);
        tables_.AntecedentEnds.reserve(ruleCount);
        tables_.ConsequentEnds.reserve(ruleCount);
    }

    void AddRule(TextView rule) {
        Split(rule, u':', pieces_);
        RequirePieces(pieces_, 2);
        const TextView body = pieces_[0];
        tables_.RuleWeights.push_back(ParseNumber(pieces_[1]));
        Split(body, u'/', pieces_);
        RequirePieces(pieces_, 2);
        const TextView antecedents = pieces_[0];
        const TextView consequents = pieces_[1];
        AddAntecedents(antecedents);
        AddConsequents(consequents);
    }

    std::shared_ptr<RuleTables> TakeTables() {
        return std::make_shared<RuleTables>(std::move(tables_));
    }

  private:
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
            tables_.Antecedents.push_back(DegreeIndex(variable, term));
        }
        tables_.AntecedentEnds.push_back(tables_.Antecedents.size());
    }

    /// The place of a term's degree, made when no earlier rule uses the term.
    std::uint32_t DegreeIndex(TextView variable, TextView term) {
        const std::uint32_t* input = inputs_.Find(variable);
        if (!input) {
            input =
                &inputs_.Add(Text(variable), static_cast<std::uint32_t>(tables_.UsedInputs.size()));
            tables_.UsedInputs.push_back({Text(variable), std::nullopt, {}, {}});
            terms_.emplace_back(KeyComparison::Exact);
        }
        const auto next = static_cast<std::uint32_t>(tables_.Degrees.size());
        NameIndex& terms = terms_[*input];
        if (const std::uint32_t* const degree = terms.Find(term)) {
            return *degree;
        }
        terms.Add(Text(term), next);
        tables_.UsedInputs[*input].Terms.emplace_back(term);
        tables_.UsedInputs[*input].DegreeIndices.push_back(next);
        tables_.Degrees.push_back(1);
        return next;
    }

    void AddConsequents(TextView list) {
        const bool isFirstRule = tables_.ConsequentEnds.empty();
        named_.clear();
        Split(list, u';', elements_);
        for (const TextView element : elements_) {
            const auto [output, term] = ParseElement(element, u'<');
            const std::optional<double> point = ConsequentPoint(output, term);
            RequireFirstMention(output);
            if (isFirstRule) {
                AddOutput(output);
            }
            const std::uint32_t* const index = outputIndices_.Find(output);
            tables_.Consequents.push_back({index ? *index : Consequent::UnknownOutput, point});
        }
        tables_.ConsequentEnds.push_back(tables_.Consequents.size());
    }

    void AddOutput(TextView output) {
        outputIndices_.Add(Text(output), static_cast<std::uint32_t>(tables_.UsedOutputs.size()));
        tables_.UsedOutputs.push_back({.Name = Text(output)});
    }

    RuleTables tables_;

    NameIndex inputs_{KeyComparison::Exact};
    std::vector<NameIndex> terms_;
    NameIndex outputIndices_{KeyComparison::Exact};

    std::vector<TextView> pieces_;
    std::vector<TextView> elements_;
    std::vector<TextView> named_;
};

std::shared_ptr<RuleTables> BuildTables(const RuleDictionary& rules) {
    TableBuilder builder(rules.Count());
    for (const auto& [rule, value] : rules) {
        builder.AddRule(rule);
    }
    return builder.TakeTables();
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
        auto tables = BuildTables(Definition::Require(Definition::State().RuleBase));
        auto outputs = InitialOutputs(*tables);
        Definition::State().Tables = std::move(tables);
        Definition::State().OutputValues = std::move(outputs);
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
