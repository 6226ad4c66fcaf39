// SPDX-License-Identifier: MIT
// Tests of the page's life: made, given a control, applied, read-only, loaded anew.
#include "model/BuiltInDefinition.h"
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;
using Assignments = ControlRecorder::Assignments;

class PageLifeTest : public PageTest {};

TEST_F(PageLifeTest, ANewPageHasItsCaptionsAndNothingElse) {
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add", u"Modify", u"Delete"}));
    EXPECT_EQ(Page.Buttons().Rule.Caption, u"Rule Editor...");
    EXPECT_FALSE(Page.Buttons().Rule.Enabled);
    EXPECT_FALSE(Page.Changed());
    EXPECT_EQ(Page.Root(Side::Input), nullptr);
    EXPECT_EQ(Page.Selected(Side::Output), nullptr);
    EXPECT_EQ(InputTree.Take(), Texts({}));
    Page.Add();
    Page.Modify();
    Page.Delete();
    EXPECT_EQ(InputTree.Take(), Texts({}));
}

TEST_F(PageLifeTest, ANewPageSpeaksTheCurrentLanguage) {
    State().LanguageId = Chinese;
    const FisPage page(Prompts, InputTree, OutputTree);
    EXPECT_EQ(ButtonTexts(page), Texts({u"添加", u"修改", u"删除"}));
    EXPECT_EQ(page.Buttons().Rule.Caption, u"规则编辑器...");
}

TEST_F(PageLifeTest, SelectionChangedParsesAndFillsBothTrees) {
    StoreTexts(Inputs, Outputs, Rules);
    Page.SelectionChanged(false);
    EXPECT_EQ(InputTree.Take(), Texts({u"Show [Input]"}));
    EXPECT_EQ(OutputTree.Take(), Texts({u"Show [Output]"}));
    EXPECT_EQ(KeysBelow(*Page.Root(Side::Output)),
              Texts({u"C", u"C\\1", u"C\\-1", u"C\\MF_1", u"C\\MF_1\\Point", u"C\\MF_2",
                     u"C\\MF_2\\Point", u"D", u"D\\100", u"D\\0", u"D\\P", u"D\\P\\Point", u"D\\Q",
                     u"D\\Q\\Point"}));
    for (const Side side : {Side::Input, Side::Output}) {
        const TreeNode& root = *Page.Root(side);
        EXPECT_EQ(Page.Selected(side), &root);
        EXPECT_EQ(Tree(side).Selection, &root);
        EXPECT_TRUE(root.Bold);
        EXPECT_TRUE(root.Expanded);
        EXPECT_EQ(root.Color, 0x808000U);
    }
    EXPECT_FALSE(Page.ReadOnly());
    EXPECT_FALSE(Page.Changed());
}

TEST_F(PageLifeTest, AfterSelectionChangedTheUserMustClickANodeToAct) {
    Load();
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Variable", u"Modify", u"Delete"}));
    EXPECT_TRUE(Page.Buttons().Rule.Enabled);
    Page.Add();
    Page.Delete();
    Page.Modify();
    EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs), Text(Outputs), Text(Rules)}));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    EXPECT_EQ(InputTree.Take(), Texts({}));
    EXPECT_EQ(OutputTree.Take(), Texts({}));
}

TEST_F(PageLifeTest, ASecondSelectionChangedDropsWhatWasNotApplied) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A", u"Renamed"));
    EXPECT_TRUE(Page.Changed());
    Page.SelectionChanged(false);
    EXPECT_FALSE(Page.Changed());
    EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs), Text(Outputs), Text(Rules)}));
    EXPECT_NE(FindNode(*InputTree.Root, u"A"), nullptr);
    EXPECT_EQ(FindNode(*InputTree.Root, u"Renamed"), nullptr);
}

TEST_F(PageLifeTest, LoadsTheBuiltInSystem) {
    State().InputsText = Main::BuiltInInputs();
    State().OutputsText = Main::BuiltInOutputs();
    State().RulesText = Main::BuiltInRules();
    Page.SelectionChanged(false);
    EXPECT_EQ(Page.Root(Side::Input)->Children.size(), 2U);
    EXPECT_EQ(Page.Root(Side::Output)->Children.size(), 1U);
}

TEST_F(PageLifeTest, ApplyBuildsTheTextsAndAssignsThemInOrder) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A", u"Temp"));
    ControlRecorder control;
    EXPECT_TRUE(Page.ApplyChanges(control));
    EXPECT_FALSE(Page.Changed());
    EXPECT_EQ(control.Assigned, (Assignments{{u"Inputs", State().InputsText},
                                             {u"Outputs", State().OutputsText},
                                             {u"Rules", State().RulesText}}));
    EXPECT_EQ(StoredTexts(),
              (PlainTexts{u"Temp" + Text(Inputs.substr(1)), Text(Outputs),
                          u"Temp>MF_1;B>LO/C<MF_1;D<P:1|Temp>MF_2;B>HI/C<MF_2;D<Q:0.5"}));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(PageLifeTest, ApplyAssignsWhatItBuiltWhateverTheControlDoesMeanwhile) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A", u"Temp"));
    ControlRecorder control;
    control.OnPut = [] { StoreTexts(u"", u"", u""); };
    EXPECT_TRUE(Page.ApplyChanges(control));
    ASSERT_EQ(control.Assigned.size(), 3U);
    for (const auto& [property, value] : control.Assigned) {
        EXPECT_FALSE(value.empty()) << Narrow(property);
    }
}

TEST_F(PageLifeTest, ApplyRefusesAnEmptyRuleBaseUntilThereIsARule) {
    Load(Inputs, Outputs, u"");
    ControlRecorder control;
    EXPECT_FALSE(Page.Changed());
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_FALSE(Page.ApplyChanges(control));
        EXPECT_EQ(Prompts.Take(), Refusal(u"The rule base cannot be empty!"));
        EXPECT_TRUE(Page.Changed());
    }
    EXPECT_TRUE(Edit(Side::Output, u"C", u"Speed"));
    EXPECT_FALSE(Page.ApplyChanges(control));
    EXPECT_EQ(control.Assigned, Assignments());
    EXPECT_EQ(StoredTexts(), (PlainTexts{Text(Inputs), Text(Outputs), u""}));
    Prompts.Take();
    State().RuleBase->Add(u"A>MF_1;B>LO/Speed<MF_1;D<P:1");
    EXPECT_TRUE(Page.ApplyChanges(control));
    EXPECT_EQ(control.Assigned.size(), 3U);
    EXPECT_FALSE(Page.Changed());
}

TEST_F(PageLifeTest, ApplyRefusesInChinese) {
    Load(Inputs, Outputs, u"");
    State().LanguageId = Chinese;
    ControlRecorder control;
    EXPECT_FALSE(Page.ApplyChanges(control));
    EXPECT_EQ(Prompts.Take(),
              (ShownPrompts{{u"规则库不能为空！", PromptStyle::Critical, u"Quorvane 推理系统"}}));
}

TEST_F(PageLifeTest, AnErrorOfTheControlLeavesTheEditsPending) {
    Load();
    ControlRecorder control;
    control.Refused = u"Outputs";
    EXPECT_EQ(Raised([&] { Page.ApplyChanges(control); }),
              PlatformError(RuntimeError::InvalidCall));
    EXPECT_TRUE(Page.Changed());
    EXPECT_EQ(control.Assigned.size(), 1U);
}

TEST_F(PageLifeTest, AReadOnlyPageShowsAndRefusesEverything) {
    Parse(Inputs, Outputs, Rules);
    StoreTexts(u"", u"", u"");
    Page.SelectionChanged(true);
    EXPECT_TRUE(Page.ReadOnly());
    EXPECT_FALSE(Page.Buttons().Rule.Enabled);
    // The running model is shown, not the stored texts.
    EXPECT_EQ(Page.Root(Side::Input)->Children.size(), 2U);
    for (const TextView key :
         {u"[Input]", u"A", u"A\\1", u"A\\-1", u"A\\MF_1", u"A\\MF_1\\Point:1"}) {
        TreeNode& node = Click(Side::Input, key);
        const PageButtons& buttons = Page.Buttons();
        EXPECT_FALSE(buttons.Add.Enabled || buttons.Modify.Enabled || buttons.Delete.Enabled);
        EXPECT_FALSE(Page.BeforeLabelEdit(Side::Input, node));
        EXPECT_FALSE(Page.AfterLabelEdit(Side::Input, node, u"Other"));
    }
    ControlRecorder control;
    EXPECT_FALSE(Page.ApplyChanges(control));
    EXPECT_EQ(control.Assigned, Assignments());
    EXPECT_FALSE(Page.Changed());
    EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs), Text(Outputs), Text(Rules)}));
}

TEST_F(PageLifeTest, AReadOnlyPageParsesWhereThereIsNoModelYet) {
    Load(Inputs, Outputs, Rules, true);
    EXPECT_EQ(Page.Root(Side::Input)->Children.size(), 2U);
}

TEST_F(PageLifeTest, ATextThatDoesNotParseLeavesAReadOnlyPage) {
    struct Case {
        TextView Inputs;
        RuntimeError Error;
    };
    const Case cases[] = {
        {u"A/1/-1/T,0,0,1,1|A/1/-1/T,0,0,1,1", RuntimeError::DuplicateKey},
        {u"A/x/-1/T,0,0,1,1", RuntimeError::TypeMismatch},
        {u"A/1", RuntimeError::SubscriptOutOfRange},
    };
    for (const auto& [inputs, error] : cases) {
        Load();
        Click(Side::Input, u"A");
        StoreTexts(inputs, Outputs, Rules);
        EXPECT_EQ(Raised([&] { Page.SelectionChanged(false); }), PlatformError(error));
        EXPECT_TRUE(Page.ReadOnly());
        EXPECT_FALSE(Page.Buttons().Rule.Enabled);
        EXPECT_EQ(InputTree.Root, Page.Root(Side::Input));
        ControlRecorder control;
        EXPECT_FALSE(Page.ApplyChanges(control));
        EXPECT_EQ(control.Assigned, Assignments());
    }
}

TEST_F(PageLifeTest, TheFlagOfTheRuleEditorIsTakenOver) {
    Load();
    for (const bool changed : {true, false}) {
        Page.SetChanged(changed);
        EXPECT_EQ(Page.Changed(), changed);
    }
}

} // namespace
} // namespace Quorvane::Editor
