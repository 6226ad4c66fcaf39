// SPDX-License-Identifier: MIT
// Tests of the page's buttons: captions and enabling by node, adding, deleting, limits, questions.
#include "shared/NumberText.h"
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;

class PageButtonsTest : public PageTest {
  protected:
    /// Texts of a system with so many inputs, or so many terms in its one input.
    static Text ManyInputs(int count) {
        Text texts;
        for (int i = 1; i <= count; ++i) {
            texts += (i == 1 ? u"V" : u"|V") + NumberText(i) + u"/1/-1/MF_1,-1,0,0,1";
        }
        return texts;
    }
    static Text ManyTerms(int count) {
        Text text = u"A/1/-1/";
        for (int i = 1; i <= count; ++i) {
            text += (i == 1 ? u"T" : u";T") + NumberText(i) + u",-1,0,0,1";
        }
        return text;
    }

    const PlainTexts Loaded{Text(Inputs), Text(Outputs), Text(Rules)};
};

TEST_F(PageButtonsTest, FollowTheNodeThatIsClicked) {
    struct Case {
        Side Of;
        TextView Key;
        std::vector<Text> Buttons;
    };
    const auto root = Texts({u"Add Variable*", u"Modify", u"Delete"});
    const auto variable = Texts({u"Add Term*", u"Modify Variable*", u"Delete Variable*"});
    const auto term = Texts({u"Add", u"Modify Term*", u"Delete Term*"});
    const auto value = Texts({u"Add", u"Modify Value*", u"Delete"});
    const Case cases[] = {
        {Side::Input, u"[Input]", root},
        {Side::Input, u"A", variable},
        {Side::Input, u"A\\1", value},
        {Side::Input, u"A\\-1", value},
        {Side::Input, u"A\\MF_1", term},
        {Side::Input, u"A\\MF_1\\Point:1", value},
        {Side::Input, u"A\\MF_1\\Point:4", value},
        {Side::Output, u"[Output]", root},
        {Side::Output, u"C", variable},
        {Side::Output, u"C\\1", value},
        {Side::Output, u"C\\-1", value},
        {Side::Output, u"C\\MF_2", term},
        {Side::Output, u"C\\MF_2\\Point", value},
    };
    Load();
    for (const auto& [side, key, buttons] : cases) {
        TreeNode& node = Click(side, key);
        EXPECT_EQ(ButtonTexts(Page), buttons) << Narrow(key);
        EXPECT_EQ(Page.Selected(side), &node);
    }
}

TEST_F(PageButtonsTest, HaveChineseCaptions) {
    const std::pair<TextView, std::vector<Text>> cases[] = {
        {u"[Input]", Texts({u"添加变量*", u"修改", u"删除"})},
        {u"A", Texts({u"添加项*", u"修改变量*", u"删除变量*"})},
        {u"A\\MF_1", Texts({u"添加", u"修改项*", u"删除项*"})},
        {u"A\\1", Texts({u"添加", u"修改数值*", u"删除"})},
        {u"A\\MF_1\\Point:2", Texts({u"添加", u"修改数值*", u"删除"})},
    };
    Load();
    State().LanguageId = Chinese;
    for (const auto& [key, buttons] : cases) {
        Click(Side::Input, key);
        EXPECT_EQ(ButtonTexts(Page), buttons) << Narrow(key);
    }
}

TEST_F(PageButtonsTest, AddVariableEndsAt32) {
    const std::pair<int, bool> cases[] = {{31, true}, {32, false}, {33, false}};
    for (const auto& [count, canAdd] : cases) {
        for (const Side side : {Side::Input, Side::Output}) {
            Text outputs = u"C/1/-1/P,0";
            for (int i = 2; i <= count; ++i) {
                outputs += u"|V" + NumberText(i) + u"/1/-1/P,0";
            }
            Load(ManyInputs(count), outputs, u"");
            Click(side, TraitsOf(side).RootKey);
            EXPECT_EQ(Page.Buttons().Add.Enabled, canAdd) << count;
            Page.Add();
            Click(side, TraitsOf(side).RootKey);
            EXPECT_FALSE(count >= 31 && Page.Buttons().Add.Enabled);
            EXPECT_EQ(VariablesOf(side).Count(), static_cast<std::size_t>(count + canAdd));
        }
    }
}

TEST_F(PageButtonsTest, AddTermEndsAt16) {
    const std::pair<int, bool> cases[] = {{15, true}, {16, false}, {17, false}};
    for (const auto& [count, canAdd] : cases) {
        Load(ManyTerms(count), Outputs, u"");
        Click(Side::Input, u"A");
        EXPECT_EQ(Page.Buttons().Add.Enabled, canAdd) << count;
        Page.Add();
        Click(Side::Input, u"A");
        EXPECT_FALSE(Page.Buttons().Add.Enabled);
        EXPECT_EQ(State().InputVariables->At(u"A").MF.Count(),
                  static_cast<std::size_t>(count + canAdd));
    }
}

TEST_F(PageButtonsTest, TheOnlyVariableAndTheOnlyTermStay) {
    Load(u"A/1/-1/T,0,0,1,1", u"C/1/-1/P,0", u"");
    const std::pair<Side, TextView> cases[] = {
        {Side::Input, u"A"}, {Side::Input, u"A\\T"}, {Side::Output, u"C"}, {Side::Output, u"C\\P"}};
    const PlainTexts before = ModelTexts();
    for (const auto& [side, key] : cases) {
        Click(side, key);
        EXPECT_FALSE(Page.Buttons().Delete.Enabled) << Narrow(key);
        Page.Delete();
    }
    EXPECT_EQ(ModelTexts(), before);
    EXPECT_FALSE(Page.Changed());
}

TEST_F(PageButtonsTest, AddingAVariableAsksAndEmptiesTheRules) {
    Load();
    Click(Side::Input, u"[Input]");
    Page.Add();
    EXPECT_EQ(Prompts.Take(), EmptyingQuestion());
    EXPECT_EQ(RuleTexts(), Texts({}));
    const LinguisticVariable& added = State().InputVariables->At(u"Input_1");
    EXPECT_EQ(added.Name, u"Input_1");
    EXPECT_EQ((std::array{added.UBound, added.LBound, added.Max, added.Min}),
              (std::array{1.0, -1.0, 0.6, -0.6}));
    EXPECT_EQ(KeysOf(added.MF), Texts({u"MF_1"}));
    EXPECT_EQ(added.MF.At(u"MF_1").Points, (TrapezoidPoints{-0.6, -0.2, 0.2, 0.6}));
    EXPECT_EQ(ModelTexts(), (PlainTexts{Text(Inputs) + u"|Input_1/1/-1/MF_1,-0.6,-0.2,0.2,0.6",
                                        Text(Outputs), u""}));
    EXPECT_EQ(InputTree.Take(), Texts({u"Insert Input_1", u"Select Input_1"}));
    EXPECT_EQ(OutputTree.Take(), Texts({}));
    EXPECT_TRUE(Page.Changed());
    EXPECT_EQ(Page.Selected(Side::Input)->Key, u"Input_1");
    EXPECT_TRUE(Page.Selected(Side::Input)->Expanded);
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Term*", u"Modify Variable*", u"Delete Variable*"}));
}

TEST_F(PageButtonsTest, ANewOutputHasASingletonInTheMiddle) {
    Load();
    Click(Side::Output, u"[Output]");
    Page.Add();
    EXPECT_EQ(Prompts.Take(), EmptyingQuestion());
    const LinguisticVariable& added = State().OutputVariables->At(u"Output_1");
    EXPECT_EQ((std::array{added.UBound, added.LBound, added.Max, added.Min}),
              (std::array{1.0, -1.0, 0.0, 0.0}));
    EXPECT_EQ(ModelTexts(),
              (PlainTexts{Text(Inputs), Text(Outputs) + u"|Output_1/1/-1/MF_1,0", u""}));
    EXPECT_EQ(OutputTree.Take(), Texts({u"Insert Output_1", u"Select Output_1"}));
    EXPECT_EQ(InputTree.Take(), Texts({}));
}

TEST_F(PageButtonsTest, TheQuestionIsAskedInChinese) {
    Load();
    Click(Side::Input, u"[Input]");
    State().LanguageId = Chinese;
    Page.Add();
    EXPECT_EQ(Prompts.Take(), (ShownPrompts{{u"规则库将被清空！\r\n继续？", PromptStyle::Question,
                                             u"Quorvane 推理系统"}}));
}

TEST_F(PageButtonsTest, NoChangesNothing) {
    const std::pair<Side, TextView> cases[] = {{Side::Input, u"[Input]"},
                                               {Side::Output, u"[Output]"},
                                               {Side::Input, u"B"},
                                               {Side::Output, u"D"}};
    Prompts.Answer = PromptAnswer::No;
    Load();
    for (const auto& [side, key] : cases) {
        const bool isRoot = Click(side, key).Tag == NodeTag::Root;
        isRoot ? Page.Add() : Page.Delete();
        EXPECT_EQ(Prompts.Take(), EmptyingQuestion());
        EXPECT_EQ(ModelTexts(), Loaded);
        EXPECT_EQ(Tree(side).Take(), Texts({}));
        EXPECT_FALSE(Page.Changed());
    }
}

TEST_F(PageButtonsTest, WithoutRulesNothingIsAsked) {
    Load(Inputs, Outputs, u"");
    Prompts.Answer = PromptAnswer::No;
    Click(Side::Input, u"[Input]");
    Page.Add();
    Click(Side::Output, u"D");
    Page.Delete();
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    EXPECT_EQ(KeysOf(*State().InputVariables), Texts({u"A", u"B", u"Input_1"}));
    EXPECT_EQ(KeysOf(*State().OutputVariables), Texts({u"C"}));
}

TEST_F(PageButtonsTest, NewVariablesTakeTheFirstFreeNumber) {
    const std::pair<TextView, TextView> cases[] = {
        {u"Input_1/1/0/T,0,0,1,1|Input_2/1/0/T,0,0,1,1", u"Input_3"},
        {u"Input_2/1/0/T,0,0,1,1", u"Input_1"},
        {u"INPUT_1/1/0/T,0,0,1,1", u"Input_2"},
        {u"Output_1/1/0/T,0,0,1,1", u"Input_1"},
    };
    for (const auto& [inputs, name] : cases) {
        Load(inputs, Outputs, u"");
        Click(Side::Input, u"[Input]");
        Page.Add();
        EXPECT_EQ(Page.Selected(Side::Input)->Key, name);
    }
}

TEST_F(PageButtonsTest, NewTermsLieBetweenTheBounds) {
    struct Case {
        Side Of;
        TextView Bounds;
        TextView Term;
    };
    const Case cases[] = {
        {Side::Input, u"V/1/-1", u"MF_1,-0.6,-0.2,0.2,0.6"},
        {Side::Input, u"V/10/0", u"MF_1,2,4,6,8"},
        {Side::Input, u"V/1E+15/0",
         u"MF_1,200000000000000,400000000000000,600000000000000,800000000000000"},
        {Side::Input, u"V/1E-12/0", u"MF_1,2E-13,4E-13,6E-13,8E-13"},
        {Side::Input, u"V/-1/1", u"MF_1,0.6,0.2,-0.2,-0.6"},
        {Side::Output, u"V/1/-1", u"MF_1,0"},
        {Side::Output, u"V/10/5", u"MF_1,7.5"},
        {Side::Output, u"V/3/3", u"MF_1,3"},
    };
    for (const auto& [side, bounds, term] : cases) {
        const bool isInput = side == Side::Input;
        const Text before = Text(bounds) + (isInput ? u"/T,0,0,0,0" : u"/T,0");
        const Text rules = u"V>T/C<P:1";
        Load(isInput ? TextView(before) : u"V/1/0/T,0,0,1,1",
             isInput ? u"C/1/0/P,0" : TextView(before), rules);
        Click(side, u"V");
        Page.Add();
        const PlainTexts after = ModelTexts();
        EXPECT_EQ(isInput ? after.Inputs : after.Outputs, before + u';' + Text(term));
        EXPECT_EQ(after.Rules, rules);
        EXPECT_EQ(Prompts.Take(), ShownPrompts());
        EXPECT_EQ(Tree(side).Take(), Texts({u"Insert V\\MF_1", u"Select V\\MF_1"}));
        EXPECT_TRUE(Page.Changed());
        EXPECT_TRUE(Page.Selected(side)->Expanded);
        EXPECT_EQ(ButtonTexts(Page), Texts({u"Add", u"Modify Term*", u"Delete Term*"}));
    }
}

TEST_F(PageButtonsTest, ANewTermTakesTheFirstFreeNumberAndLeavesTheExtent) {
    Load();
    LinguisticVariable& variable = State().InputVariables->At(u"A");
    variable.MF.Remove(u"MF_1");
    variable.Max = 42;
    variable.Min = -42;
    Click(Side::Input, u"A");
    Page.Add();
    Click(Side::Input, u"A");
    Page.Add();
    EXPECT_EQ(KeysOf(variable.MF), Texts({u"MF_2", u"MF_1", u"MF_3"}));
    EXPECT_EQ(std::pair(variable.Max, variable.Min), std::pair(42.0, -42.0));
}

TEST_F(PageButtonsTest, ATermBetweenBoundsTooFarApartIsAnErrorThatChangesNothing) {
    Load(u"A/1E+308/-1E+308/T,0,0,1,1", u"C/1E+308/0/P,1E+308", u"");
    EXPECT_TRUE(Edit(Side::Output, u"C\\0", u"1E+308"));
    const PlainTexts before = ModelTexts();
    Page.SetChanged(false);
    OutputTree.Take();
    for (const auto& [side, key] : {std::pair(Side::Input, u"A"), std::pair(Side::Output, u"C")}) {
        Click(side, key);
        EXPECT_EQ(Raised([&] { Page.Add(); }), PlatformError(RuntimeError::Overflow));
        EXPECT_EQ(Tree(side).Take(), Texts({}));
    }
    EXPECT_EQ(ModelTexts(), before);
    EXPECT_FALSE(Page.Changed());
}

TEST_F(PageButtonsTest, DeletingAVariableEmptiesTheRulesAndSelectsTheNext) {
    Load();
    Click(Side::Input, u"A");
    Page.Delete();
    EXPECT_EQ(Prompts.Take(), EmptyingQuestion());
    EXPECT_EQ(ModelTexts(), (PlainTexts{u"B/10/0/LO,0,0,2,5;HI,4,6,9,9", Text(Outputs), u""}));
    EXPECT_EQ(InputTree.Take(), Texts({u"Select B", u"Remove A"}));
    EXPECT_EQ(FindNode(*InputTree.Root, u"A"), nullptr);
    EXPECT_EQ(Page.Selected(Side::Input)->Key, u"B");
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Term*", u"Modify Variable*", u"Delete Variable"}));
    EXPECT_TRUE(Page.Changed());
}

TEST_F(PageButtonsTest, DeletingATermDeletesTheRulesThatUseIt) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Rules;
        TextView Rest;
    };
    constexpr TextView inputs = u"A/1/0/MF_1,0,0,1,1;MF_2,0,0,1,1;MF_10,0,0,1,1"
                                u"|BA/1/0/MF_1,0,0,1,1;X,0,0,1,1";
    constexpr TextView outputs = u"C/1/0/MF_1,0;MF_2,0;MF_16,1|A/1/0/MF_1,0;Y,0";
    const Case cases[] = {
        {Side::Input, u"A\\MF_2", u"A>MF_1/C<MF_2:1|A>MF_2/C<MF_1:1", u"A>MF_1/C<MF_2:1"},
        // Where names begin or end does not matter.
        {Side::Input, u"A\\MF_1", u"A>MF_10/C<MF_1:1|BA>MF_1/C<MF_1:1|BA>X/C<MF_1:1",
         u"BA>X/C<MF_1:1"},
        {Side::Input, u"A\\MF_10", u"A>MF_10/C<MF_1:1|A>MF_1/C<MF_1:1", u"A>MF_1/C<MF_1:1"},
        {Side::Output, u"C\\MF_1", u"A>MF_1/C<MF_1:1|A>MF_1/C<MF_16:1|A>MF_1/C<MF_2:1",
         u"A>MF_1/C<MF_2:1"},
        // An input and an output of one name are not mixed up.
        {Side::Output, u"A\\MF_1", u"A>MF_1/C<MF_1;A<Y:1|A>MF_2/C<MF_1;A<MF_1:1",
         u"A>MF_1/C<MF_1;A<Y:1"},
        {Side::Input, u"A\\MF_1", u"A>MF_1/C<MF_1;A<MF_1:1|A>MF_2/C<MF_1;A<MF_1:1",
         u"A>MF_2/C<MF_1;A<MF_1:1"},
    };
    for (const auto& [side, key, rules, rest] : cases) {
        Load(inputs, outputs, rules);
        const Text parentKey = Click(side, key).Parent->Key;
        Page.Delete();
        EXPECT_EQ(ModelTexts().Rules, rest) << Narrow(key);
        EXPECT_EQ(Prompts.Take(), ShownPrompts());
        EXPECT_EQ(FindNode(*Tree(side).Root, key), nullptr);
        EXPECT_TRUE(Page.Changed());
        EXPECT_EQ(Page.Selected(side)->Parent->Key, parentKey);
        EXPECT_EQ(Page.Selected(side)->Tag, NodeTag::MF);
    }
}

TEST_F(PageButtonsTest, DeletingATermLeavesTheExtentUntilThePointEdit) {
    Load();
    LinguisticVariable& variable = State().InputVariables->At(u"A");
    Click(Side::Input, u"A\\MF_2");
    Page.Delete();
    EXPECT_EQ(KeysOf(variable.MF), Texts({u"MF_1"}));
    EXPECT_EQ(std::pair(variable.Max, variable.Min), std::pair(1.0, -1.0));
    EXPECT_TRUE(Edit(Side::Input, u"A\\MF_1\\Point:1", u"-0.9"));
    EXPECT_EQ(std::pair(variable.Max, variable.Min), std::pair(0.2, -0.9));
}

TEST_F(PageButtonsTest, ModifyEditsTheLabelOfTheSelectedNodeOfTheTreeLastClicked) {
    Load();
    Click(Side::Input, u"A");
    Click(Side::Output, u"C\\MF_1\\Point");
    Page.Modify();
    EXPECT_EQ(InputTree.Take(), Texts({}));
    EXPECT_EQ(OutputTree.Take(), Texts({u"EditLabel C\\MF_1\\Point"}));
    Click(Side::Input, u"[Input]");
    Page.Modify();
    EXPECT_EQ(InputTree.Take(), Texts({}));
}

TEST_F(PageButtonsTest, DisabledButtonsDoNothing) {
    Load();
    Click(Side::Input, u"A\\1");
    Page.Add();
    Page.Delete();
    Click(Side::Input, u"[Input]");
    Page.Delete();
    Click(Side::Input, u"A\\MF_1");
    Page.Add();
    EXPECT_EQ(ModelTexts(), Loaded);
    EXPECT_EQ(InputTree.Take(), Texts({}));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(PageButtonsTest, TheTreeThatIsEnteredByKeyboardIsTheCurrentOne) {
    Load();
    EXPECT_TRUE(Page.WaitsForClick());
    // The roots are selected, but neither has been clicked.
    Page.EnterTree(Side::Output);
    EXPECT_FALSE(Page.WaitsForClick());
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Variable*", u"Modify", u"Delete"}));
    Click(Side::Input, u"A");
    EXPECT_EQ(Page.CurrentTree(), Side::Input);
    Page.EnterTree(Side::Output);
    EXPECT_EQ(Page.CurrentTree(), Side::Output);
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Variable*", u"Modify", u"Delete"}));
    Page.EnterTree(Side::Input);
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add Term*", u"Modify Variable*", u"Delete Variable*"}));
}

TEST_F(PageButtonsTest, ATreeThatWasNeverFilledCannotBeEntered) {
    Page.EnterTree(Side::Input);
    EXPECT_TRUE(Page.WaitsForClick());
    EXPECT_EQ(ButtonTexts(Page), Texts({u"Add", u"Modify", u"Delete"}));
}

} // namespace
} // namespace Quorvane::Editor
