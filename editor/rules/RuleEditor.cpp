// SPDX-License-Identifier: MIT
// Selecting, adding, re-weighting and deleting rules.
#include "editor/rules/RuleEditor.h"

#include <algorithm>

#include "editor/checks/Checks.h"
#include "editor/checks/DesignTime.h"
#include "editor/rules/RuleText.h"
#include "shared/NumberText.h"
#include "shared/TermColors.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

constexpr TextView FirstWeight = u"1";

RuleDictionary& Rules() {
    return Definition::Require(Definition::State().RuleBase);
}

void RemoveRule(TextView rule) {
    // The rule base can have been replaced since the row was made.
    if (Rules().Exists(rule)) {
        Rules().Remove(rule);
    }
}

std::vector<Text> VariableNames(const RulePanel& panel) {
    std::vector<Text> names;
    for (const PanelRow& row : panel.Rows) {
        names.push_back(row.Variable);
    }
    return names;
}

/// The chosen terms of a panel as the list of a rule text; empty without variables.
Text ChosenTerms(const RulePanel& panel, char16_t mark) {
    Text list;
    for (const PanelRow& row : panel.Rows) {
        list += row.Variable + mark + row.Items[row.Selected] + u';';
    }
    if (!list.empty()) {
        list.pop_back();
    }
    return list;
}

} // namespace

RuleEditorCaptions CurrentRuleEditorCaptions() {
    return {.RuleBase = Main::GetText(TextIds::RuleBase),
            .Antecedent = Main::GetText(TextIds::Antecedent),
            .Consequent = Main::GetText(TextIds::Consequent),
            .Weight = Main::GetText(TextIds::Weight),
            .Add = Main::GetText(TextIds::AddRule),
            .Delete = Main::GetText(TextIds::DeleteRule),
            .Close = Main::GetText(TextIds::Close)};
}

std::uint32_t RuleRowColor() {
    return TermColors[6];
}

RuleEditor::RuleEditor(Prompt& prompt, bool changed)
    : prompt_(prompt), inputs_(MakeRulePanel(Side::Input)), outputs_(MakeRulePanel(Side::Output)),
      rows_(VariableNames(inputs_), VariableNames(outputs_)), weight_(FirstWeight),
      changed_(changed) {
    FillRows();
    UpdateButtons();
}

void RuleEditor::FillRows() {
    selected_.reset();
    rows_.Fill(Rules());
    if (const auto last = rows_.FindNumber(rows_.Count())) {
        SelectRow(*last);
    }
}

void RuleEditor::SelectRow(std::size_t row) {
    selected_ = row;
    const RuleParts rule = SplitRule(rows_.Rule(row));
    ShowTerms(Side::Input, rule.Antecedents);
    ShowTerms(Side::Output, rule.Consequents);
    weight_ = UserWeightText(rule.Weight);
    hasTypedWeight_ = false;
    canDelete_ = true;
}

void RuleEditor::ShowTerms(Side side, TextView list) {
    const auto terms = TermsOf(list, TraitsOf(side).TermMark);
    for (PanelRow& row : panel(side).Rows) {
        const TextView* const term = terms.Find(row.Variable);
        const auto item = std::ranges::find_if(
            row.Items, [term](const Text& name) { return term && SameName(name, *term); });
        // A term that the variable lacks, in a damaged rule, chooses nothing: "[NONE]".
        row.Selected =
            item == row.Items.end() ? 0 : static_cast<std::size_t>(item - row.Items.begin());
    }
}

void RuleEditor::UpdateButtons() {
    const std::size_t rules = Rules().Count();
    canAdd_ = !inputs_.Rows.empty() && !outputs_.Rows.empty() && rules < MostRules;
    canDelete_ = rules > 0;
}

void RuleEditor::Sort(RuleOrder order) {
    const std::size_t number = selected_ ? rows_.Number(*selected_) : 0;
    rows_.Sort(order);
    selected_ = rows_.FindNumber(number);
}

void RuleEditor::ChooseTerm(Side side, std::size_t variable, std::size_t item) {
    panel(side).Rows[variable].Selected = item;
}

void RuleEditor::EditWeight(Text text) {
    weight_ = std::move(text);
    hasTypedWeight_ = true;
    canDelete_ = false;
}

bool RuleEditor::ValidateWeight() {
    Text normal = DesignTime::NormalNumberText(weight_);
    if (!DesignTime::ValidateNumber(normal, 0.0, 1.0, prompt_)) {
        return false;
    }
    weight_ = std::move(normal);
    hasTypedWeight_ = false;
    return true;
}

Text RuleEditor::ChosenHead() const {
    return ChosenTerms(inputs_, TraitsOf(Side::Input).TermMark) + u'/' +
           ChosenTerms(outputs_, TraitsOf(Side::Output).TermMark);
}

void RuleEditor::Add() {
    if (!canAdd_ || !ValidateWeight()) {
        return;
    }
    DesignTime::RunAsEditor([this] {
        Text head = ChosenHead();
        const auto existing = rows_.FindHead(head);
        Text rule = std::move(head) + u':' + NumberText(ParseUserNumber(weight_));
        if (existing) {
            Reweigh(*existing, std::move(rule));
        } else {
            AddRule(std::move(rule));
        }
        UpdateButtons();
        changed_ = true;
    });
}

void RuleEditor::AddRule(Text rule) {
    Rules().Add(rule);
    selected_ = rows_.Add(std::move(rule));
}

void RuleEditor::Reweigh(std::size_t row, Text rule) {
    RemoveRule(rows_.Rule(row));
    // Loaded rules can differ in their weight only. Where another one has the new text, it goes.
    const bool mergesWithOther = Rules().Exists(rule);
    RemoveRule(rule);
    Rules().Add(rule);
    if (mergesWithOther) {
        selected_.reset();
        rows_.Fill(Rules());
        selected_ = rows_.FindRule(rule);
    } else {
        selected_ = rows_.Replace(row, std::move(rule));
    }
}

void RuleEditor::Delete() {
    if (!canDelete_ || !selected_) {
        return;
    }
    RemoveRule(rows_.Rule(*selected_));
    FillRows();
    UpdateButtons();
    changed_ = true;
}

} // namespace Quorvane::Editor
