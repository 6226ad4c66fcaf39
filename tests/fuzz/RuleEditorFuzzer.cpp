// SPDX-License-Identifier: MIT
// The rule editor without windows: after everything that a person does its rows are the rules, and
// the rules what adding, re-weighing and deleting plainly make of them.
#include <optional>

#include "editor/rules/RuleColumns.h"
#include "editor/rules/RuleEditor.h"
#include "editor/rules/RuleText.h"
#include "shared/NumberText.h"
#include "tests/fuzz/EditedSystem.h"

namespace Quorvane::Fuzz {
namespace {

using Editor::Side;

class RuleUser {
  public:
    explicit RuleUser(std::span<const std::uint8_t> input) : choices_(input) {}

    void Run() {
        LoadSystem(choices_);
        rules_.Load();
        editor_.emplace(prompt_, false);
        constexpr int MostSteps = 40;
        for (int step = 0; step < MostSteps && !choices_.AtEnd(); ++step) {
            Step();
            CheckAll();
        }
        Editor::MakeRuleColumns(editor_->Panel(Side::Input), editor_->Panel(Side::Output),
                                [](TextView text) { return static_cast<double>(text.size()); });
        CheckThatItReadsBack();
    }

  private:
    void Step() {
        switch (choices_.Below(8)) {
        case 0:
            if (const std::size_t count = editor_->Rows().Count()) {
                editor_->SelectRow(choices_.Below(static_cast<std::uint32_t>(count)));
            }
            break;
        case 1:
            editor_->SortBy(
                choices_.Below(static_cast<std::uint32_t>(editor_->Rows().ColumnCount())));
            break;
        case 2:
            EditWeight();
            break;
        case 3:
            Delete();
            break;
        case 4:
            editor_.emplace(prompt_, editor_->Changed());
            break;
        case 5:
            Add();
            break;
        default:
            ChooseTerm();
            break;
        }
    }

    void EditWeight() {
        static const std::vector<Text> weights = {u"0",  u"1",   u"0.5", u" .25 ", u"1.5",
                                                  u"-1", u"one", u"",    u"1E-3",  u"0.50"};
        editor_->EditWeight(choices_.Pick(weights));
        if (choices_.Percent(50) && editor_->LeaveWeight()) {
            Check(editor_->Weight() == UserNumberText(ParseUserNumber(editor_->Weight())),
                  "an accepted weight");
        }
    }

    void ChooseTerm() {
        const Side side = choices_.Percent(60) ? Side::Input : Side::Output;
        const auto& rows = editor_->Panel(side).Rows;
        if (!rows.empty()) {
            const std::uint32_t row = choices_.Below(static_cast<std::uint32_t>(rows.size()));
            const auto items = static_cast<std::uint32_t>(rows[row].Items.size());
            editor_->ChooseTerm(side, row, choices_.Below(items));
        }
    }

    /// The chosen terms of a side, joined.
    Text Chosen(Side side, char16_t mark) const {
        Text list;
        for (const auto& row : editor_->Panel(side).Rows) {
            list += (list.empty() ? u"" : u";") + row.Variable + mark + row.Items[row.Selected];
        }
        return list;
    }

    /// The rule of the first row that has these terms.
    std::optional<Text> RuleOf(TextView head) const {
        for (std::size_t row = 0; row < editor_->Rows().Count(); ++row) {
            const Text& rule = editor_->Rows().Rule(row);
            if (Editor::SameName(TextView(rule).substr(0, rule.find(u':')), head)) {
                return rule;
            }
        }
        return std::nullopt;
    }

    void Add() {
        const Text head = Chosen(Side::Input, u'>') + u'/' + Chosen(Side::Output, u'<');
        const auto existing = RuleOf(head);
        if (!editor_->CanAdd() || !editor_->ValidateWeight()) {
            editor_->Add();
            return;
        }
        const Text rule = head + u':' + NumberText(ParseUserNumber(editor_->Weight()));
        editor_->Add();
        if (existing) {
            rules_.Remove(*existing);
        }
        rules_.Remove(rule);
        rules_.Add(rule);
        Check(editor_->Changed(), "the changed flag");
        Check(editor_->SelectedRow() && editor_->Rows().Rule(*editor_->SelectedRow()) == rule,
              "the added rule is selected");
    }

    void Delete() {
        const auto row = editor_->SelectedRow();
        if (row && editor_->CanDelete()) {
            rules_.Remove(editor_->Rows().Rule(*row));
        }
        editor_->Delete();
    }

    void CheckAll() {
        rules_.CheckAgainstModel();
        const Editor::RuleList& rows = editor_->Rows();
        Check(rows.Count() == Definition::State().RuleBase->Count(), "the number of rows");
        for (std::size_t row = 0; row < rows.Count(); ++row) {
            Check(Definition::State().RuleBase->Exists(rows.Rule(row)), "the rule of a row");
            Check(rows.FindNumber(rows.Number(row)) == row, "the number of a row");
            for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
                rows.CellText(row, column);
            }
        }
        const auto selected = editor_->SelectedRow();
        Check(!selected || *selected < rows.Count(), "the selected row");
    }

    Reference::SpelledChoices choices_;
    SpelledPrompt prompt_{choices_};
    std::optional<Editor::RuleEditor> editor_;
    PlainRules rules_;
};

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::RuleUser({data, size}).Run();
    return 0;
}
