// SPDX-License-Identifier: MIT
// The rule editor as plain values: its panels, rows, weight box, buttons and changed flag.
#pragma once

#include "editor/checks/Prompt.h"
#include "editor/rules/RuleList.h"
#include "editor/rules/RulePanel.h"

namespace Quorvane::Editor {

/// The captions of the rule editor's fixed controls, in the current language.
struct RuleEditorCaptions {
    /// Of the window and of the rule list.
    Text RuleBase;
    Text Antecedent;
    Text Consequent;
    Text Weight;
    Text Add;
    Text Delete;
    Text Close;
};

/// The captions in the language of the moment.
RuleEditorCaptions CurrentRuleEditorCaptions();

/// How rows look: bold, in this colour (0x00BBGGRR).
std::uint32_t RuleRowColor();

/// All that the rule editor decides. Its window forwards events and after each call shows the rows,
/// the selected row (scrolled into view), the choices of the list boxes, the weight and the
/// buttons. Every change goes to the rule base of the process at once.
class RuleEditor {
  public:
    /// A rule may be added while the rule base holds fewer.
    static constexpr std::size_t MostRules = 32768;

    /// The editor at its load: panels made, rules listed, the last rule selected and shown. The
    /// changed flag is that of the page. The prompt outlives the editor. Raises ObjectNotSet
    /// without a model.
    RuleEditor(Prompt& prompt, bool changed);

    const RulePanel& Panel(Side side) const { return side == Side::Input ? inputs_ : outputs_; }
    const RuleList& Rows() const { return rows_; }
    /// The row that is highlighted, which is the one that is deleted; none where the user has taken
    /// the selection away, or there are no rows.
    std::optional<std::size_t> SelectedRow() const { return selected_; }
    const Text& Weight() const { return weight_; }
    bool CanAdd() const { return canAdd_; }
    bool CanDelete() const { return canDelete_; }

    /// Whether the rule base was changed here, or the page was when the editor opened.
    bool Changed() const { return changed_; }

    /// The user has clicked a row, or moved to it: shows its terms and its weight.
    void SelectRow(std::size_t row);

    /// The user has taken the selection away. What is shown stays.
    void ClearSelection() { selected_.reset(); }

    /// The user has clicked the header of a column.
    void SortBy(std::size_t column) { Sort(rows_.NextOrder(column)); }

    /// The user has chosen an order. The selection stays with its rule.
    void Sort(RuleOrder order);

    /// The user has chosen an item of a variable's list box.
    void ChooseTerm(Side side, std::size_t variable, std::size_t item);

    /// The user has changed the text of `txtWeight`: the shown rule no longer matches a row.
    void EditWeight(Text text);

    /// Whether the user has changed the text of `txtWeight`, and it has not been validated since.
    bool HasTypedWeight() const { return hasTypedWeight_; }

    /// The user leaves `txtWeight`. A number from 0 to 1 is accepted and becomes its text; anything
    /// else shows a message and returns false, and the focus is to stay. A weight that nobody has
    /// typed is left as it is: a loaded rule can have any, and is to be selected and deleted.
    bool LeaveWeight() { return !hasTypedWeight_ || ValidateWeight(); }

    /// The same for any weight, typed or not, before its rule is added.
    bool ValidateWeight();

    /// `cmdAdd`: adds the rule of the chosen terms, or gives the rule that has them the new weight.
    /// Does nothing where it is disabled or the weight is refused. Errors have text 36 as their
    /// source.
    void Add();

    /// `cmdDelete`: deletes the selected rule, without a question; the last rule is selected then.
    /// Does nothing where it is disabled or no row is selected.
    void Delete();

  private:
    RulePanel& panel(Side side) { return side == Side::Input ? inputs_ : outputs_; }

    Text ChosenHead() const;
    void AddRule(Text rule);
    void Reweigh(std::size_t row, Text rule);
    void FillRows();
    void ShowTerms(Side side, TextView list);
    void UpdateButtons();

    Prompt& prompt_;
    RulePanel inputs_;
    RulePanel outputs_;
    RuleList rows_;
    std::optional<std::size_t> selected_;
    Text weight_;
    bool hasTypedWeight_ = false;
    bool canAdd_ = false;
    bool canDelete_ = false;
    bool changed_;
};

} // namespace Quorvane::Editor
