// SPDX-License-Identifier: MIT
// Tests of editors whose model is damaged, or replaced behind them by a host or another control.
#include "editor/rules/RuleEditor.h"
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;

class HostileModelTest : public PageTest {};

const std::optional<RaisedError> NoModel = PlatformError(RuntimeError::ObjectNotSet);
const std::optional<RaisedError> Missing = PlatformError(RuntimeError::MissingKey);

/// Another system, which has no variable of the page's.
void LoadAnother() {
    Parse(u"Z/1/0/T,0,0,1,1", u"W/1/0/V,1", u"Z>T/W<V:1");
}

TEST_F(HostileModelTest, AClickOnALostVariableRaisesAndEnablesNothing) {
    for (const TextView key : {u"A", u"A\\MF_1"}) {
        Load();
        TreeNode& node = Node(Side::Input, key);
        LoadAnother();
        EXPECT_EQ(Raised([&] { Page.NodeClick(Side::Input, node); }), Missing);
        EXPECT_FALSE(Page.Buttons().Add.Enabled || Page.Buttons().Delete.Enabled);
        Definition::ReleaseModel();
        EXPECT_EQ(Raised([&] { Page.NodeClick(Side::Input, node); }), NoModel);
    }
}

TEST_F(HostileModelTest, AnEditOfALostVariableRaisesAndKeepsTheLabel) {
    for (const TextView key : {u"A", u"A\\1", u"A\\MF_1", u"A\\MF_1\\Point:2"}) {
        Load();
        TreeNode& node = Node(Side::Input, key);
        const Text caption = node.Caption;
        EXPECT_TRUE(Page.BeforeLabelEdit(Side::Input, node));
        LoadAnother();
        const PlainTexts another = ModelTexts();
        EXPECT_EQ(Raised([&] { Page.AfterLabelEdit(Side::Input, node, u"5"); }), Missing);
        EXPECT_EQ(node.Caption, caption);
        EXPECT_EQ(ModelTexts(), another);
        EXPECT_FALSE(Page.Changed());
    }
}

TEST_F(HostileModelTest, ATermThatIsLostRaises) {
    Load();
    State().InputVariables->At(u"A").MF.Remove(u"MF_1");
    const PlainTexts before = ModelTexts();
    EXPECT_EQ(Raised([&] { Edit(Side::Input, u"A\\MF_1\\Point:2", u"-0.5"); }), Missing);
    EXPECT_EQ(Raised([&] { Edit(Side::Input, u"A\\MF_1", u"New"); }), Missing);
    EXPECT_EQ(ModelTexts(), before);
}

TEST_F(HostileModelTest, DeletingWhatIsLostRaisesAndKeepsTheNode) {
    for (const TextView key : {u"A", u"A\\MF_1"}) {
        Load();
        Click(Side::Input, key);
        LoadAnother();
        EXPECT_EQ(Raised([&] { Page.Delete(); }), Missing);
        EXPECT_NE(FindNode(*InputTree.Root, key), nullptr);
        EXPECT_EQ(RuleTexts(), Texts({u"Z>T/W<V:1"}));
    }
}

TEST_F(HostileModelTest, ThePageRaisesOnceTheModelIsReleased) {
    Load();
    Click(Side::Input, u"[Input]");
    Definition::ReleaseModel();
    EXPECT_EQ(Raised([&] { Page.Add(); }), NoModel);
    ControlRecorder control;
    EXPECT_EQ(Raised([&] { Page.ApplyChanges(control); }), NoModel);
    EXPECT_EQ(control.Assigned.size(), 0U);
    EXPECT_TRUE(Page.Changed());
}

TEST_F(HostileModelTest, AQuestionDuringWhichThePageIsLoadedAnewChangesNothing) {
    const std::pair<TextView, void (FisPage::*)()> cases[] = {{u"[Input]", &FisPage::Add},
                                                              {u"A", &FisPage::Delete}};
    for (const auto& [key, press] : cases) {
        Prompts.WhileOpen = nullptr;
        Load();
        Click(Side::Input, key);
        Prompts.WhileOpen = [this] { Page.SelectionChanged(false); };
        (Page.*press)();
        EXPECT_EQ(Prompts.Take(), EmptyingQuestion());
        EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs), Text(Outputs), Text(Rules)}));
    }
}

TEST_F(HostileModelTest, ARefusalDuringWhichThePageIsLoadedAnewChangesNothing) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
    };
    const Case cases[] = {
        {Side::Input, u"A", u"B"},
        {Side::Input, u"A", u""},
        {Side::Input, u"A\\1", u"x"},
        {Side::Input, u"A\\-1", u"9"},
        {Side::Input, u"A\\MF_1", u"MF_2"},
        {Side::Input, u"A\\MF_1\\Point:1", u"x"},
        {Side::Input, u"A\\MF_1\\Point:4", u"9"},
        {Side::Output, u"C\\1", u"x"},
        {Side::Output, u"C\\MF_1\\Point", u"9"},
    };
    for (const auto& [side, key, label] : cases) {
        SCOPED_TRACE(Narrow(key));
        Prompts.WhileOpen = nullptr;
        Load();
        TreeNode& node = Node(side, key);
        EXPECT_TRUE(Page.BeforeLabelEdit(side, node));
        Prompts.WhileOpen = [this] { Page.SelectionChanged(false); };
        EXPECT_FALSE(Page.AfterLabelEdit(side, node, label));
        EXPECT_EQ(Prompts.Take().size(), 1U);
        EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs), Text(Outputs), Text(Rules)}));
        EXPECT_FALSE(Page.Changed());
    }
}

TEST_F(HostileModelTest, TheRuleEditorShowsDamagedRulesAndDeletesThem) {
    const std::vector<Text> damaged{u"nonsense",   u"A>X", u"A>GONE/C<GONE:1", u"Q>X/R<P:much",
                                    u"A>X/C<P/:2", u"::",  u"A<X;B<X/C>P:-5",  u"/"};
    Load();
    State().RuleBase->RemoveAll();
    for (const Text& rule : damaged) {
        State().RuleBase->Add(rule);
    }
    RuleEditor editor(Prompts, false);
    ASSERT_EQ(editor.Rows().Count(), damaged.size());
    for (std::size_t row = 0; row < damaged.size(); ++row) {
        editor.SelectRow(row);
        for (std::size_t column = 0; column < editor.Rows().ColumnCount(); ++column) {
            EXPECT_LE(editor.Rows().CellText(row, column).size(), damaged[row].size() + 1);
        }
    }
    // A term that the variable lacks chooses nothing.
    editor.SelectRow(2);
    EXPECT_EQ(editor.Panel(Side::Input).Rows[0].Selected, 0U);
    EXPECT_EQ(editor.Panel(Side::Output).Rows[0].Selected, 0U);
    for (std::size_t column = 0; column < editor.Rows().ColumnCount(); ++column) {
        editor.SortBy(column);
    }
    while (editor.SelectedRow()) {
        editor.Delete();
    }
    EXPECT_EQ(RuleTexts(), Texts({}));
}

TEST_F(HostileModelTest, TheRuleEditorRefusesTheWeightOfADamagedRule) {
    Load(Inputs, Outputs, u"A>MF_1;B>LO/C<MF_1;D<P:much");
    RuleEditor editor(Prompts, false);
    EXPECT_EQ(editor.Weight(), u"much");
    editor.Add();
    EXPECT_EQ(Prompts.Take(), Refusal(u"Should be a number!"));
    EXPECT_FALSE(editor.Changed());
}

TEST_F(HostileModelTest, TheRuleEditorOutlivesAReplacedModel) {
    Load();
    RuleEditor editor(Prompts, false);
    LoadAnother();
    // Its row is still there, its rule is not.
    editor.SelectRow(0);
    EXPECT_EQ(editor.Rows().CellText(0, 1), u"MF_1");
    editor.Delete();
    EXPECT_EQ(RuleTexts(), Texts({u"Z>T/W<V:1"}));
    EXPECT_EQ(editor.Rows().Count(), 1U);
    EXPECT_EQ(editor.Rows().CellText(0, 1), u"T") << "of a variable that has no column";
}

TEST_F(HostileModelTest, TheRuleEditorReweighsARuleThatIsGone) {
    Load(Inputs, Outputs, u"A>MF_1;B>LO/C<MF_1;D<P:1");
    RuleEditor editor(Prompts, false);
    State().RuleBase->RemoveAll();
    editor.EditWeight(u"0.5");
    editor.Add();
    EXPECT_EQ(RuleTexts(), Texts({u"A>MF_1;B>LO/C<MF_1;D<P:0.5"}));
}

TEST_F(HostileModelTest, ARuleThatAppearedBehindTheEditorIsAnErrorInTheEditorsName) {
    Load(Inputs, Outputs, u"");
    RuleEditor editor(Prompts, false);
    const Text rule = u"A>[NONE];B>[NONE]/C<[NONE];D<[NONE]:1";
    State().RuleBase->Add(rule);
    EXPECT_EQ(Raised([&] { editor.Add(); }),
              (RaisedError{0x800A01C9, u"Quorvane Inference System", u""}));
    EXPECT_EQ(editor.Rows().Count(), 0U);
    EXPECT_FALSE(editor.Changed());
}

TEST_F(HostileModelTest, TheRuleEditorRaisesOnceTheModelIsReleased) {
    EXPECT_EQ(Raised([&] { RuleEditor(Prompts, false); }), NoModel);
    Load();
    RuleEditor editor(Prompts, false);
    Definition::ReleaseModel();
    EXPECT_EQ(Raised([&] { editor.Delete(); }), NoModel);
    EXPECT_EQ(Raised([&] { editor.Add(); }),
              (RaisedError{0x800A005B, u"Quorvane Inference System", u""}));
    EXPECT_FALSE(editor.Changed());
    editor.SelectRow(0);
    editor.SortBy(1);
}

} // namespace
} // namespace Quorvane::Editor
