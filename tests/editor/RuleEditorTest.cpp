// SPDX-License-Identifier: MIT
// Tests of the rule editor: load, selection, weights, adding, re-weighting, deleting, sorting.
#include "editor/rules/RuleEditor.h"

#include "shared/NumberText.h"
#include "tests/core/TestPlatform.h"
#include "tests/editor/EditorTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;

constexpr TextView Inputs = u"A/1/0/X,0,0,1,1;Y,0,0,1,1|B/1/0/X,0,0,1,1;Z,0,0,1,1";
constexpr TextView Outputs = u"C/1/0/P,0;Q,1";

class RuleEditorTest : public EditorTest {
  protected:
    /// An editor on rules of the inputs A and B and the output C.
    RuleEditor Open(TextView rules, bool changed = false) {
        Parse(Inputs, Outputs, rules);
        return RuleEditor(Prompts, changed);
    }
};

/// The chosen terms, inputs first, and the weight.
std::vector<Text> Shown(const RuleEditor& editor) {
    std::vector<Text> shown;
    for (const Side side : {Side::Input, Side::Output}) {
        for (const PanelRow& row : editor.Panel(side).Rows) {
            shown.push_back(row.Items[row.Selected]);
        }
    }
    shown.push_back(editor.Weight());
    return shown;
}

std::vector<Text> RowTexts(const RuleEditor& editor) {
    std::vector<Text> rows;
    for (std::size_t row = 0; row < editor.Rows().Count(); ++row) {
        rows.push_back(editor.Rows().CellText(row, 0) + u' ' + editor.Rows().Rule(row));
    }
    return rows;
}

/// Chooses items of the lists of A, B and C and gives a weight.
void Choose(RuleEditor& editor, std::size_t a, std::size_t b, std::size_t c, TextView weight) {
    editor.ChooseTerm(Side::Input, 0, a);
    editor.ChooseTerm(Side::Input, 1, b);
    editor.ChooseTerm(Side::Output, 0, c);
    editor.EditWeight(Text(weight));
}

TEST_F(RuleEditorTest, OpensOnTheLastRule) {
    const RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>[NONE]/C<Q:0.5");
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/C<P:1", u"2 A>Y;B>[NONE]/C<Q:0.5"}));
    EXPECT_EQ(editor.SelectedRow(), 1U);
    EXPECT_EQ(Shown(editor), Texts({u"Y", u"[NONE]", u"Q", u"0.5"}));
    EXPECT_TRUE(editor.CanAdd());
    EXPECT_TRUE(editor.CanDelete());
    EXPECT_FALSE(editor.Changed());
}

TEST_F(RuleEditorTest, OpensOnNoRules) {
    const RuleEditor editor = Open(u"");
    EXPECT_EQ(editor.SelectedRow(), std::nullopt);
    EXPECT_EQ(Shown(editor), Texts({u"[NONE]", u"[NONE]", u"[NONE]", u"1"}));
    EXPECT_TRUE(editor.CanAdd());
    EXPECT_FALSE(editor.CanDelete());
}

TEST_F(RuleEditorTest, ClosingWithoutAChangeLeavesThePagesFlag) {
    for (const bool changed : {false, true}) {
        RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>X/C<P:1", changed);
        editor.SelectRow(0);
        editor.SortBy(1);
        editor.EditWeight(u"0.5");
        EXPECT_TRUE(editor.ValidateWeight());
        editor.ChooseTerm(Side::Input, 0, 2);
        EXPECT_EQ(editor.Changed(), changed);
        editor.Add();
        EXPECT_TRUE(editor.Changed());
    }
}

TEST_F(RuleEditorTest, AddNeedsAnInputAndAnOutput) {
    struct Case {
        TextView Inputs;
        TextView Outputs;
        bool CanAdd;
    };
    const Case cases[] = {
        {Inputs, Outputs, true}, {Inputs, u"", false}, {u"", Outputs, false}, {u"", u"", false}};
    for (const auto& [inputs, outputs, canAdd] : cases) {
        Parse(inputs, outputs, u"");
        RuleEditor editor(Prompts, false);
        EXPECT_EQ(editor.CanAdd(), canAdd);
        editor.Add();
        EXPECT_EQ(editor.Rows().Count(), canAdd ? 1U : 0U);
        EXPECT_EQ(editor.Changed(), canAdd);
    }
}

TEST_F(RuleEditorTest, ARowClickShowsTheRule) {
    RuleEditor editor = Open(u"A>X;B>Z/C<P:0.25|B>X;a>y/c<q:1");
    editor.SelectRow(0);
    EXPECT_EQ(Shown(editor), Texts({u"X", u"Z", u"P", u"0.25"}));
    // Order and letter case of a loaded rule are its own.
    editor.SelectRow(1);
    EXPECT_EQ(Shown(editor), Texts({u"Y", u"X", u"Q", u"1"}));
    EXPECT_EQ(editor.SelectedRow(), 1U);
}

TEST_F(RuleEditorTest, TypingAWeightDisablesDeleteUntilARowIsClicked) {
    RuleEditor editor = Open(u"A>X;B>Z/C<P:0.25");
    editor.EditWeight(u"0.3");
    EXPECT_FALSE(editor.CanDelete());
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>Z/C<P:0.25"}));
    editor.SelectRow(0);
    EXPECT_TRUE(editor.CanDelete());
    EXPECT_EQ(editor.Weight(), u"0.25");
}

TEST_F(RuleEditorTest, ValidatesTheWeight) {
    struct Case {
        TextView Typed;
        TextView Weight;
        TextView Message;
    };
    const Case cases[] = {
        {u"0", u"0", u""},
        {u"1", u"1", u""},
        {u"0.50", u"0.5", u""},
        {u" 1e-1 ", u"0.1", u""},
        {u"1.5", u"1.5", u"Enter a number less than 1!"},
        {u"-0.1", u"-0.1", u"Enter a number greater than 0!"},
        {u"abc", u"abc", u"Should be a number!"},
        {u"", u"", u"Should be a number!"},
    };
    RuleEditor editor = Open(u"");
    for (const auto& [typed, weight, message] : cases) {
        editor.EditWeight(Text(typed));
        EXPECT_EQ(editor.ValidateWeight(), message.empty()) << Narrow(typed);
        EXPECT_EQ(editor.Weight(), weight);
        EXPECT_EQ(Prompts.Take(), message.empty() ? ShownPrompts() : Refusal(Text(message)));
    }
}

TEST_F(RuleEditorTest, LeavesAWeightAloneThatNobodyHasTyped) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:2|A>Y;B>X/C<P:1");
    editor.SelectRow(0);
    EXPECT_FALSE(editor.HasTypedWeight());
    EXPECT_TRUE(editor.LeaveWeight());
    EXPECT_EQ(editor.Weight(), u"2");
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    editor.Add();
    EXPECT_EQ(Prompts.Take(), Refusal(u"Enter a number less than 1!")) << "not to be added";
    editor.EditWeight(u"3");
    EXPECT_TRUE(editor.HasTypedWeight());
    EXPECT_FALSE(editor.LeaveWeight());
    EXPECT_EQ(Prompts.Take(), Refusal(u"Enter a number less than 1!"));
    editor.SelectRow(0);
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"A>Y;B>X/C<P:1"}));
}

TEST_F(RuleEditorTest, AddingValidatesTheWeightFirst) {
    RuleEditor editor = Open(u"");
    for (const TextView weight : {u"1.5", u"-1", u"abc", u""}) {
        Choose(editor, 1, 1, 1, weight);
        editor.Add();
        EXPECT_EQ(Prompts.Take().size(), 1U);
        EXPECT_EQ(RuleTexts(), Texts({}));
        EXPECT_EQ(editor.Rows().Count(), 0U);
        EXPECT_FALSE(editor.Changed());
    }
    Choose(editor, 1, 1, 1, u"0.50");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:0.5"}));
    EXPECT_EQ(editor.Weight(), u"0.5");
}

TEST_F(RuleEditorTest, AddsTheChosenRuleAndSelectsItsRow) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1");
    Choose(editor, 2, 0, 2, u"0.75");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:1", u"A>Y;B>[NONE]/C<Q:0.75"}));
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/C<P:1", u"2 A>Y;B>[NONE]/C<Q:0.75"}));
    EXPECT_EQ(editor.SelectedRow(), 1U);
    EXPECT_TRUE(editor.CanDelete());
    EXPECT_TRUE(editor.Changed());
}

TEST_F(RuleEditorTest, NoneMayBeChosenForEverything) {
    RuleEditor editor = Open(u"");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>[NONE];B>[NONE]/C<[NONE]:1"}));
}

TEST_F(RuleEditorTest, AddingARuleAgainChangesItsWeight) {
    RuleEditor editor = Open(u"");
    Choose(editor, 1, 2, 1, u"1");
    editor.Add();
    Choose(editor, 1, 2, 1, u"0.5");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>Z/C<P:0.5"}));
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>Z/C<P:0.5"}));
    EXPECT_EQ(editor.Rows().CellText(0, 4), u"0.5");
    EXPECT_EQ(editor.SelectedRow(), 0U);
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(RuleEditorTest, AModifiedRuleMovesToTheEndAndItsRowStays) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>X/C<P:1");
    editor.SelectRow(0);
    editor.EditWeight(u"0.5");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>Y;B>X/C<P:1", u"A>X;B>X/C<P:0.5"}));
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/C<P:0.5", u"2 A>Y;B>X/C<P:1"}));
    EXPECT_EQ(editor.SelectedRow(), 0U);
    EXPECT_TRUE(editor.Changed());
    const RuleEditor later(Prompts, false);
    EXPECT_EQ(RowTexts(later), Texts({u"1 A>Y;B>X/C<P:1", u"2 A>X;B>X/C<P:0.5"}));
}

TEST_F(RuleEditorTest, TheSameWeightAgainLeavesOneRule) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:1"}));
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/C<P:1"}));
}

TEST_F(RuleEditorTest, RulesThatDifferOnlyInWeightAreTwoRows) {
    constexpr TextView rules = u"A>X;B>X/C<P:1|A>X;B>X/C<P:0.5|A>Y;B>X/C<P:1";
    RuleEditor editor = Open(rules);
    EXPECT_EQ(editor.Rows().Count(), 3U);
    editor.SelectRow(1);
    EXPECT_EQ(editor.Weight(), u"0.5");
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:1", u"A>Y;B>X/C<P:1"}));

    // A new weight goes to the first of them.
    RuleEditor second = Open(rules);
    second.SelectRow(1);
    second.EditWeight(u"0.25");
    second.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:0.5", u"A>Y;B>X/C<P:1", u"A>X;B>X/C<P:0.25"}));
    EXPECT_EQ(second.SelectedRow(), 0U);

    // Where the other one has the new text already, one remains.
    RuleEditor third = Open(rules);
    third.SelectRow(0);
    third.EditWeight(u"0.5");
    third.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>Y;B>X/C<P:1", u"A>X;B>X/C<P:0.5"}));
    EXPECT_EQ(RowTexts(third), Texts({u"1 A>Y;B>X/C<P:1", u"2 A>X;B>X/C<P:0.5"}));
    EXPECT_EQ(third.SelectedRow(), 1U);
}

TEST_F(RuleEditorTest, DeletesTheSelectedRuleWithoutAQuestion) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>X/C<Q:0.5|A>Y;B>Z/C<P:1");
    editor.SelectRow(0);
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"A>Y;B>X/C<Q:0.5", u"A>Y;B>Z/C<P:1"}));
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>Y;B>X/C<Q:0.5", u"2 A>Y;B>Z/C<P:1"}));
    EXPECT_EQ(editor.SelectedRow(), 1U);
    EXPECT_EQ(Shown(editor), Texts({u"Y", u"Z", u"P", u"1"}));
    EXPECT_TRUE(editor.Changed());
    editor.Delete();
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({}));
    EXPECT_EQ(editor.SelectedRow(), std::nullopt);
    EXPECT_FALSE(editor.CanDelete());
    EXPECT_TRUE(editor.CanAdd());
    editor.Delete();
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(RuleEditorTest, NothingIsDeletedWithoutASelection) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>X/C<Q:0.5");
    editor.SelectRow(0);
    editor.ClearSelection();
    EXPECT_EQ(editor.SelectedRow(), std::nullopt);
    EXPECT_EQ(Shown(editor), Texts({u"X", u"X", u"P", u"1"})) << "what is shown stays";
    editor.Delete();
    editor.SortBy(1);
    EXPECT_EQ(editor.SelectedRow(), std::nullopt);
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:1", u"A>Y;B>X/C<Q:0.5"}));
    EXPECT_FALSE(editor.Changed());
    editor.Add();
    EXPECT_EQ(editor.SelectedRow(), 0U) << "of the rule that has these terms";
}

TEST_F(RuleEditorTest, AnAddedRuleAndANewWeightGoWhereTheOrderSays) {
    RuleEditor editor = Open(u"A>X;B>X/C<P:1|A>Y;B>X/C<P:0.5");
    editor.SortBy(4);
    Choose(editor, 0, 0, 0, u"0.75");
    editor.Add();
    EXPECT_EQ(RowTexts(editor), Texts({u"2 A>Y;B>X/C<P:0.5", u"3 A>[NONE];B>[NONE]/C<[NONE]:0.75",
                                       u"1 A>X;B>X/C<P:1"}));
    EXPECT_EQ(editor.SelectedRow(), 1U);
    editor.SelectRow(2);
    editor.EditWeight(u"0.25");
    editor.Add();
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/C<P:0.25", u"2 A>Y;B>X/C<P:0.5",
                                       u"3 A>[NONE];B>[NONE]/C<[NONE]:0.75"}));
    EXPECT_EQ(editor.SelectedRow(), 0U);
}

TEST_F(RuleEditorTest, SortingKeepsTheSelectionAndDeletingTheOrder) {
    RuleEditor editor = Open(u"A>Y;B>X/C<P:1|A>X;B>X/C<P:1|A>[NONE];B>X/C<P:1");
    editor.SelectRow(1);
    editor.SortBy(1);
    // Letters count as capitals, which come before "[".
    EXPECT_EQ(RowTexts(editor),
              Texts({u"2 A>X;B>X/C<P:1", u"1 A>Y;B>X/C<P:1", u"3 A>[NONE];B>X/C<P:1"}));
    EXPECT_EQ(editor.SelectedRow(), 0U);
    editor.SortBy(1);
    EXPECT_EQ(RowTexts(editor),
              Texts({u"3 A>[NONE];B>X/C<P:1", u"1 A>Y;B>X/C<P:1", u"2 A>X;B>X/C<P:1"}));
    EXPECT_EQ(editor.SelectedRow(), 2U);
    editor.SelectRow(1);
    editor.Delete();
    EXPECT_EQ(RowTexts(editor), Texts({u"2 A>[NONE];B>X/C<P:1", u"1 A>X;B>X/C<P:1"}));
    // The last rule of the rule base, wherever its row is.
    EXPECT_EQ(editor.SelectedRow(), 0U);
}

TEST_F(RuleEditorTest, TheRuleHoldsAPointWhateverTheUsersForm) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    RuleEditor editor = Open(u"A>X;B>X/C<P:0.25");
    EXPECT_EQ(editor.Weight(), u"0,25");
    EXPECT_EQ(editor.Rows().CellText(0, 4), u"0,25");
    editor.EditWeight(u"0,50");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>X;B>X/C<P:0.5"}));
    EXPECT_EQ(editor.Weight(), u"0,5");
    EXPECT_EQ(editor.Rows().CellText(0, 4), u"0,5");
}

TEST_F(RuleEditorTest, AnInputAndAnOutputMayShareAName) {
    Parse(u"A/1/0/X,0,0,1,1;Y,0,0,1,1", u"A/1/0/X,0;Q,1", u"A>Y/A<X:1");
    RuleEditor editor(Prompts, false);
    EXPECT_EQ(Shown(editor), Texts({u"Y", u"X", u"1"}));
    editor.ChooseTerm(Side::Output, 0, 2);
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>Y/A<X:1", u"A>Y/A<Q:1"}));
}

TEST_F(RuleEditorTest, ListsRulesOnASystemWithoutOutputs) {
    Parse(Inputs, u"", u"A>X;B>X/:1");
    RuleEditor editor(Prompts, false);
    EXPECT_EQ(RowTexts(editor), Texts({u"1 A>X;B>X/:1"}));
    EXPECT_FALSE(editor.CanAdd());
    EXPECT_TRUE(editor.CanDelete());
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({}));
}

/// So many different rules; the inputs have no such terms.
void UseRules(std::size_t count) {
    State().RuleBase.emplace(KeyComparison::IgnoreCase);
    for (std::size_t i = 0; i < count; ++i) {
        const Text rule = u"A>T" + NumberText(static_cast<double>(i)) + u";B>X/C<P:1";
        State().RuleBase->Add(rule);
    }
}

TEST_F(RuleEditorTest, TheRuleBaseIsFullAt32768Rules) {
    Parse(Inputs, Outputs, u"");
    UseRules(32767);
    RuleEditor editor(Prompts, false);
    EXPECT_EQ(editor.Rows().Count(), 32767U);
    EXPECT_EQ(editor.Rows().CellText(32766, 0), u"32767");
    EXPECT_TRUE(editor.CanAdd());
    Choose(editor, 1, 1, 1, u"1");
    editor.Add();
    EXPECT_EQ(State().RuleBase->Count(), 32768U);
    EXPECT_FALSE(editor.CanAdd());
    editor.Add();
    EXPECT_EQ(State().RuleBase->Count(), 32768U);
    for (std::size_t column = 0; column < editor.Rows().ColumnCount(); ++column) {
        editor.SortBy(column);
    }
    EXPECT_EQ(editor.Rows().Rule(editor.SelectedRow().value()), u"A>X;B>X/C<P:1");
    editor.Delete();
    EXPECT_EQ(editor.Rows().Count(), 32767U);
    EXPECT_TRUE(editor.CanAdd());
}

} // namespace
} // namespace Quorvane::Editor
