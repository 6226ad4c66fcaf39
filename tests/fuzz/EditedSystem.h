// SPDX-License-Identifier: MIT
// What the fuzzers of the editors have in common: a system to edit, its rules as plain texts beside
// it, and a person who answers.
#pragma once

#include <algorithm>
#include <vector>

#include "editor/checks/Prompt.h"
#include "model/BuildDefinition.h"
#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "shared/Definition.h"
#include "tests/fuzz/Check.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::Fuzz {

/// Answers questions as the input spells.
class SpelledPrompt final : public Editor::Prompt {
  public:
    explicit SpelledPrompt(Reference::Choices& choices) : choices_(choices) {}

    Editor::PromptAnswer Show(const Text& text, Editor::PromptStyle style, const Text&) override {
        Check(!text.empty(), "the message of a box");
        if (style == Editor::PromptStyle::Critical) {
            return Editor::PromptAnswer::OK;
        }
        return choices_.Percent(60) ? Editor::PromptAnswer::Yes : Editor::PromptAnswer::No;
    }

  private:
    Reference::Choices& choices_;
};

/// The rules of the process once more, changed by plain means.
class PlainRules {
  public:
    /// Takes the rules as they are.
    void Load() {
        rules_.clear();
        for (const auto& [rule, content] : *Definition::State().RuleBase) {
            rules_.emplace_back(rule);
        }
    }

    void Clear() { rules_.clear(); }
    void Remove(TextView rule) {
        std::erase_if(rules_, [rule](const Text& one) { return Same(one, rule); });
    }
    void RemoveContaining(TextView part) {
        std::erase_if(rules_, [part](const Text& one) { return one.find(part) != Text::npos; });
    }
    void Add(Text rule) { rules_.push_back(std::move(rule)); }

    /// False, and nothing is changed, where two would become equal.
    bool Rename(TextView oldPart, TextView newPart) {
        std::vector<Text> renamed = rules_;
        bool changes = false;
        for (Text& rule : renamed) {
            for (auto at = rule.find(oldPart); at != Text::npos;
                 at = rule.find(oldPart, at + newPart.size())) {
                rule.replace(at, oldPart.size(), newPart);
                changes = true;
            }
        }
        for (std::size_t i = 0; changes && i < renamed.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                if (Same(renamed[i], renamed[j])) {
                    return false;
                }
            }
        }
        rules_ = std::move(renamed);
        return true;
    }

    void CheckAgainstModel() const {
        const RuleDictionary& rules = *Definition::State().RuleBase;
        Check(rules.Count() == rules_.size(), "the number of rules");
        auto expected = rules_.begin();
        for (const auto& [rule, content] : rules) {
            Check(TextView(rule) == *expected++, "a rule");
        }
    }

  private:
    static bool Same(TextView left, TextView right) {
        return KeyEqual{KeyComparison::IgnoreCase}(left, right);
    }

    std::vector<Text> rules_;
};

/// Loads a made-up system, with or without names that no editor lets pass.
inline void LoadSystem(Reference::Choices& choices) {
    Definition::Reset();
    const Reference::SystemLimits limits{
        .Inputs = 3, .Terms = 3, .Outputs = 2, .Rules = 6, .OddNames = 10};
    const Reference::SystemTexts texts = Reference::MakeSystem(choices, limits);
    Definition::State().InputsText = Main::TransformText(texts.Inputs, true);
    Definition::State().OutputsText = Main::TransformText(texts.Outputs, true);
    Definition::State().RulesText = Main::TransformText(texts.Rules, true);
    Main::ParseDefinition();
}

/// What has been edited is built, and read back as the same system.
inline void CheckThatItReadsBack() {
    const auto& state = Definition::State();
    const auto build = [&state] {
        Main::BuildDefinition();
        return std::vector<Text>{state.InputsText, state.OutputsText, state.RulesText};
    };
    const auto built = build();
    Check(!Raised(Main::ParseDefinition), "what was edited parses");
    Check(build() == built, "what was edited reads back");
}

} // namespace Quorvane::Fuzz
