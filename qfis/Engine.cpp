// SPDX-License-Identifier: MIT
// The product's engine over a system as a value.
#include "qfis/Engine.h"

#include <map>

#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "model/ParseDefinition.h"
#include "shared/Definition.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Qfis {
namespace {

using Definition::State;

/// A name for a variable, told by its number, under a spelling, told by a number of its own: names
/// that differ in the second number alone are equal without regard to case, and only so.
Text NeutralName(std::size_t variable, std::size_t spelling) {
    Text name = u"v" + Widen(std::to_string(variable)) + u'_';
    for (constexpr std::size_t Bits = 32; const char16_t letter : Text(Bits, u'x')) {
        name += (spelling & 1) != 0 ? FoldCase(letter) : letter;
        spelling >>= 1;
    }
    return name;
}

/// Gives variables and terms names that the stored texts hold, whatever theirs are.
template <class Term>
class Renaming {
  public:
    explicit Renaming(std::vector<System::Variable<Term>>& variables) : variables_(variables) {
        for (std::size_t i = 0; i < variables.size(); ++i) {
            variables[i].Name = NeutralName(i, 0);
            for (std::size_t j = 0; j < variables[i].Terms.size(); ++j) {
                variables[i].Terms[j].Name = u"t" + Widen(std::to_string(j));
            }
        }
        spellings_.resize(variables.size());
    }

    void Rename(std::vector<System::Clause>& clauses) {
        for (System::Clause& clause : clauses) {
            if (!clause.Spelling.empty()) {
                auto& known = spellings_[clause.Variable];
                const auto number = known.emplace(clause.Spelling, known.size() + 1).first->second;
                clause.Spelling = NeutralName(clause.Variable, number);
            }
        }
    }

  private:
    std::vector<System::Variable<Term>>& variables_;
    std::vector<std::map<Text, std::size_t>> spellings_;
};

/// The same system under names of ASCII.
System::FuzzySystem Renamed(System::FuzzySystem system) {
    Renaming inputs(system.Inputs);
    Renaming outputs(system.Outputs);
    for (System::Rule& rule : system.Rules) {
        inputs.Rename(rule.Antecedents);
        outputs.Rename(rule.Consequents);
    }
    return system;
}

} // namespace

Engine::Engine(const System::FuzzySystem& system) {
    const System::FuzzySystem renamed = Renamed(system);
    System::DefinitionTexts stored = System::StoredTexts(renamed);
    State().InputsText = std::move(stored.Inputs);
    State().OutputsText = std::move(stored.Outputs);
    State().RulesText = std::move(stored.Rules);
    Main::ParseDefinition();
    RunTime::PrepareRuleBase();
    auto& values = dynamic_cast<OwnValueDictionary&>(*State().InputValues).Items;
    for (const System::InputVariable& input : renamed.Inputs) {
        inputs_.push_back(&values.At(input.Name).Content);
    }
    for (const System::OutputVariable& output : renamed.Outputs) {
        const auto* const item = State().OutputValues->Items.Find(output.Name);
        outputs_.push_back(item ? &item->Content : nullptr);
    }
}

Engine::~Engine() {
    Definition::Reset();
}

void Engine::ReplaceInput(std::size_t index, const std::optional<double>& value) {
    if (value) {
        *inputs_[index] = *value;
    } else {
        *inputs_[index] = Value();
    }
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): of the engine that is loaded
bool Engine::Fire() {
    try {
        RunTime::Infer();
        return true;
    } catch (const FisError&) {
        for (auto& [name, item] : State().OutputValues->Items) {
            item.Content = State().DefaultOutputValues->Get(name);
        }
        return false;
    }
}

} // namespace Quorvane::Qfis
