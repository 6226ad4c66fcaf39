// SPDX-License-Identifier: MIT
// Tests of edited labels: what is accepted, what is refused, and what an edit reaches.
#include "tests/core/TestPlatform.h"
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

using Definition::State;

class LabelEditsTest : public PageTest {
  protected:
    const PlainTexts Loaded{Text(Inputs), Text(Outputs), Text(Rules)};
};

constexpr TextView InputKeys[] = {u"A", u"A\\1", u"A\\-1", u"A\\MF_1", u"A\\MF_1\\Point:1"};

TEST_F(LabelEditsTest, AVariableIsRenamedEverywhere) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A", u"Temp"));
    EXPECT_EQ(KeysOf(*State().InputVariables), Texts({u"Temp", u"B"}));
    EXPECT_EQ(State().InputVariables->At(u"Temp").Name, u"Temp");
    EXPECT_EQ(RuleTexts(),
              Texts({u"Temp>MF_1;B>LO/C<MF_1;D<P:1", u"Temp>MF_2;B>HI/C<MF_2;D<Q:0.5"}));
    const TreeNode& node = Node(Side::Input, u"Temp");
    EXPECT_EQ(node.Caption, u"Temp");
    EXPECT_EQ(KeysBelow(node),
              Texts({u"Temp\\1", u"Temp\\-1", u"Temp\\MF_1", u"Temp\\MF_1\\Point:1",
                     u"Temp\\MF_1\\Point:2", u"Temp\\MF_1\\Point:3", u"Temp\\MF_1\\Point:4",
                     u"Temp\\MF_2", u"Temp\\MF_2\\Point:1", u"Temp\\MF_2\\Point:2",
                     u"Temp\\MF_2\\Point:3", u"Temp\\MF_2\\Point:4"}));
    EXPECT_EQ(InputTree.Take(), Texts({u"UpdateCaption Temp"}));
    EXPECT_TRUE(Page.Changed());
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(LabelEditsTest, AnOutputIsRenamedByItsOwnMark) {
    Load(u"A/1/0/T,0,0,1,1|C/1/0/T,0,0,1,1", u"C/1/0/P,0;Q,1", u"A>T;C>T/C<P:1");
    EXPECT_TRUE(Edit(Side::Output, u"C", u"Speed"));
    EXPECT_EQ(RuleTexts(), Texts({u"A>T;C>T/Speed<P:1"}));
    EXPECT_TRUE(Edit(Side::Input, u"C", u"Heat"));
    EXPECT_EQ(RuleTexts(), Texts({u"A>T;Heat>T/Speed<P:1"}));
    EXPECT_TRUE(Edit(Side::Output, u"Speed\\P", u"Fast"));
    EXPECT_EQ(RuleTexts(), Texts({u"A>T;Heat>T/Speed<Fast:1"}));
    EXPECT_EQ(KeysBelow(*OutputTree.Root),
              Texts({u"Speed", u"Speed\\1", u"Speed\\0", u"Speed\\Fast", u"Speed\\Fast\\Point",
                     u"Speed\\Q", u"Speed\\Q\\Point"}));
}

TEST_F(LabelEditsTest, ARenameReachesEveryPlaceOfItsTextInTheRules) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
        TextView Before;
        TextView After;
    };
    const Case cases[] = {
        {Side::Input, u"A", u"C", u"A>X;BA>X/Z<P:1", u"C>X;BC>X/Z<P:1"},
        {Side::Input, u"A\\MF_1", u"LOW", u"A>MF_10;BA>X/Z<P:1", u"A>LOW0;BA>X/Z<P:1"},
        {Side::Output, u"Z", u"W", u"A>X/Z<P;ZZ<P:1", u"A>X/W<P;ZW<P:1"},
        {Side::Output, u"Z\\P", u"R", u"A>X/Z<P;ZZ<PP:1", u"A>X/Z<R;ZZ<RP:1"},
    };
    for (const auto& [side, key, label, before, after] : cases) {
        Load(u"A/1/0/X,0,0,1,1;MF_1,0,0,1,1;MF_10,0,0,1,1|BA/1/0/X,0,0,1,1",
             u"Z/1/0/P,0;Q,1|ZZ/1/0/P,0;PP,1", before);
        EXPECT_TRUE(Edit(side, key, label));
        EXPECT_EQ(ModelTexts().Rules, after);
    }
}

TEST_F(LabelEditsTest, ATermIsRenamedInItsVariableAlone) {
    Load(u"A/1/0/T,0,0,1,1;U,0,0,1,1|B/1/0/T,0,0,1,1", u"C/1/0/T,0", u"A>T;B>T/C<T:1");
    EXPECT_TRUE(Edit(Side::Input, u"A\\T", u"Cold"));
    EXPECT_EQ(ModelTexts(), (PlainTexts{u"A/1/0/Cold,0,0,1,1;U,0,0,1,1|B/1/0/T,0,0,1,1",
                                        u"C/1/0/T,0", u"A>Cold;B>T/C<T:1"}));
    EXPECT_EQ(KeysBelow(Node(Side::Input, u"A\\Cold")),
              Texts({u"A\\Cold\\Point:1", u"A\\Cold\\Point:2", u"A\\Cold\\Point:3",
                     u"A\\Cold\\Point:4"}));
    EXPECT_EQ(State().InputVariables->At(u"A").MF.At(u"Cold").Name, u"Cold");
    EXPECT_EQ(InputTree.Take(), Texts({u"UpdateCaption A\\Cold"}));
}

TEST_F(LabelEditsTest, NamesAreUniqueInTheirOwnTableOnly) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A", u"C"));
    EXPECT_TRUE(Edit(Side::Output, u"D", u"B"));
    EXPECT_TRUE(Edit(Side::Input, u"B\\LO", u"MF_1"));
    EXPECT_EQ(RuleTexts(), Texts({u"C>MF_1;B>MF_1/C<MF_1;B<P:1", u"C>MF_2;B>HI/C<MF_2;B<Q:0.5"}));
    EXPECT_FALSE(Edit(Side::Input, u"B", u"c"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"The identifier duplicates!"));
}

TEST_F(LabelEditsTest, AChangeOfCaseOrOfNothingSucceeds) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
        TextView Rules;
    };
    constexpr TextView inputs = u"Ab/1/0/Lo,0,0,1,1;Hi,0,0,1,1";
    constexpr TextView outputs = u"Cd/1/0/Up,0;Dn,1";
    const Case cases[] = {
        {Side::Input, u"Ab", u"aB", u"aB>Lo/Cd<Up:1|aB>Hi/Cd<Dn:1"},
        {Side::Input, u"Ab", u"Ab", u"Ab>Lo/Cd<Up:1|Ab>Hi/Cd<Dn:1"},
        {Side::Input, u"Ab\\Lo", u"LO", u"Ab>LO/Cd<Up:1|Ab>Hi/Cd<Dn:1"},
        {Side::Input, u"Ab\\Lo", u"Lo", u"Ab>Lo/Cd<Up:1|Ab>Hi/Cd<Dn:1"},
        {Side::Output, u"Cd", u"CD", u"Ab>Lo/CD<Up:1|Ab>Hi/CD<Dn:1"},
        {Side::Output, u"Cd\\Up", u"UP", u"Ab>Lo/Cd<UP:1|Ab>Hi/Cd<Dn:1"},
    };
    for (const auto& [side, key, label, rules] : cases) {
        Load(inputs, outputs, u"Ab>Lo/Cd<Up:1|Ab>Hi/Cd<Dn:1");
        TreeNode& node = Node(side, key);
        const bool isChange = node.Caption != label;
        EXPECT_TRUE(Edit(side, key, label));
        EXPECT_EQ(node.Caption, label);
        EXPECT_EQ(LastPart(node), label);
        EXPECT_EQ(ModelTexts().Rules, rules);
        EXPECT_EQ(Page.Changed(), isChange) << Narrow(label);
    }
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(LabelEditsTest, ARefusedLabelShowsItsMessageOnceAndChangesNothing) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
        TextView Message;
    };
    constexpr TextView notANumber = u"Should be a number!";
    constexpr TextView forbidden = u"Only Alphanumeric characters and _ are allowed!";
    constexpr TextView duplicate = u"The identifier duplicates!";
    const Case cases[] = {
        {Side::Input, u"A", u"B", duplicate},
        {Side::Input, u"A", u"b", duplicate},
        {Side::Input, u"A", u"", forbidden},
        {Side::Input, u"A", u"a b", forbidden},
        {Side::Input, u"A", u"温度", forbidden},
        {Side::Input, u"A", u"A\\B", forbidden},
        {Side::Input, u"A", u"A>", forbidden},
        {Side::Input, u"A", u"1A", u"The identiier cannot begin with a digit!"},
        {Side::Input, u"A", u"ABCDEFGHIJK", u"The maximum length of the identiier is 10!"},
        {Side::Output, u"C", u"d", duplicate},
        {Side::Output, u"C", u"", forbidden},
        {Side::Input, u"A\\MF_1", u"mf_2", duplicate},
        {Side::Input, u"A\\MF_1", u"", forbidden},
        {Side::Output, u"D\\P", u"Q", duplicate},
        {Side::Output, u"D\\P", u"P:1", forbidden},
        {Side::Input, u"A\\1", u"", notANumber},
        {Side::Input, u"A\\1", u"x", notANumber},
        {Side::Input, u"A\\1", u"1E400", notANumber},
        {Side::Input, u"A\\1", u"0.9", u"Enter a number greater than 1!"},
        {Side::Input, u"B\\10", u"8.5", u"Enter a number greater than 9!"},
        {Side::Input, u"A\\-1", u"-0.9", u"Enter a number less than -1!"},
        {Side::Input, u"B\\0", u"0.5", u"Enter a number less than 0!"},
        {Side::Output, u"D\\100", u"74", u"Enter a number greater than 75!"},
        {Side::Output, u"D\\0", u"51", u"Enter a number less than 50!"},
        {Side::Output, u"D\\0", u"many", notANumber},
        {Side::Input, u"A\\MF_1\\Point:1", u"-1.5", u"Enter a number greater than -1!"},
        {Side::Input, u"A\\MF_1\\Point:1", u"-0.5", u"Enter a number less than -0.6!"},
        {Side::Input, u"A\\MF_1\\Point:2", u"-2", u"Enter a number greater than -1!"},
        {Side::Input, u"A\\MF_1\\Point:2", u"0", u"Enter a number less than -0.2!"},
        {Side::Input, u"A\\MF_1\\Point:3", u"-0.7", u"Enter a number greater than -0.6!"},
        {Side::Input, u"A\\MF_1\\Point:3", u"0.3", u"Enter a number less than 0.2!"},
        {Side::Input, u"A\\MF_1\\Point:4", u"-0.3", u"Enter a number greater than -0.2!"},
        {Side::Input, u"A\\MF_1\\Point:4", u"1.01", u"Enter a number less than 1!"},
        {Side::Input, u"A\\MF_1\\Point:4", u"", notANumber},
        {Side::Output, u"C\\MF_1\\Point", u"-1.1", u"Enter a number greater than -1!"},
        {Side::Output, u"C\\MF_1\\Point", u"1.1", u"Enter a number less than 1!"},
    };
    for (const auto& [side, key, label, message] : cases) {
        SCOPED_TRACE(Narrow(key) + " to " + Narrow(label));
        Load();
        TreeNode& node = Node(side, key);
        const Text caption = node.Caption;
        const std::vector<Text> keys = KeysBelow(*Tree(side).Root);
        EXPECT_FALSE(Edit(side, key, label));
        EXPECT_EQ(Prompts.Take(), Refusal(Text(message)));
        EXPECT_EQ(node.Caption, caption);
        EXPECT_EQ(KeysBelow(*Tree(side).Root), keys);
        EXPECT_EQ(ModelTexts(), Loaded);
        EXPECT_EQ(Tree(side).Take(), Texts({}));
        EXPECT_FALSE(Page.Changed());
    }
}

TEST_F(LabelEditsTest, ARenameThatWouldMakeRulesEqualIsRefusedWhole) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
        TextView Rules;
    };
    // The rules hold names of variables and terms that the system no longer has.
    const Case cases[] = {
        {Side::Input, u"A", u"Gone", u"A>T/C<P:1|Gone>T/C<P:1"},
        {Side::Input, u"A\\T", u"Gone", u"A>Gone/C<P:1|A>U/C<P:1|A>T/C<P:1"},
        {Side::Output, u"C", u"Gone", u"A>T/C<P:1|A>T/Gone<P:1"},
        {Side::Output, u"C\\P", u"gone", u"A>T/C<P:1|A>T/C<Gone:1"},
        // By a part of a longer name.
        {Side::Input, u"A\\T", u"U", u"A>T1/C<P:1|A>U1/C<P:1"},
    };
    constexpr TextView inputs = u"A/1/0/T,0,0,1,1;V,0,0,1,1";
    constexpr TextView outputs = u"C/1/0/P,0;Q,1";
    for (const auto& [side, key, label, rules] : cases) {
        Load(inputs, outputs, rules);
        const std::vector<Text> keys = KeysBelow(*Tree(side).Root);
        EXPECT_FALSE(Edit(side, key, label));
        EXPECT_EQ(Prompts.Take(), Refusal(u"The identifier duplicates!"));
        EXPECT_EQ(ModelTexts(), (PlainTexts{Text(inputs), Text(outputs), Text(rules)}));
        EXPECT_EQ(KeysBelow(*Tree(side).Root), keys);
        EXPECT_FALSE(Page.Changed());
    }
}

TEST_F(LabelEditsTest, NumbersAreStoredAndShownAsTheirText) {
    struct Case {
        Side Of;
        TextView Key;
        TextView Label;
        TextView Caption;
        TextView Texts;
    };
    const Case cases[] = {
        {Side::Input, u"A\\1", u"1.50", u"1.5", u"A/1.5/-1/T,-1,-0.6,-0.2,1"},
        {Side::Input, u"A\\1", u" 1e15 ", u"1E+15", u"A/1E+15/-1/T,-1,-0.6,-0.2,1"},
        {Side::Input, u"A\\-1", u"-1.0", u"-1", u"A/1/-1/T,-1,-0.6,-0.2,1"},
        {Side::Input, u"A\\-1", u"-7", u"-7", u"A/1/-7/T,-1,-0.6,-0.2,1"},
        {Side::Input, u"A\\T\\Point:1", u"-0.6", u"-0.6", u"A/1/-1/T,-0.6,-0.6,-0.2,1"},
        {Side::Input, u"A\\T\\Point:2", u"-1", u"-1", u"A/1/-1/T,-1,-1,-0.2,1"},
        {Side::Input, u"A\\T\\Point:2", u"-0.2", u"-0.2", u"A/1/-1/T,-1,-0.2,-0.2,1"},
        {Side::Input, u"A\\T\\Point:3", u"1E-12", u"1E-12", u"A/1/-1/T,-1,-0.6,1E-12,1"},
        {Side::Input, u"A\\T\\Point:3", u"-0", u"0", u"A/1/-1/T,-1,-0.6,0,1"},
        {Side::Input, u"A\\T\\Point:4", u"-0.2", u"-0.2", u"A/1/-1/T,-1,-0.6,-0.2,-0.2"},
        {Side::Input, u"A\\T\\Point:4", u"0.12345678901234567", u"0.123456789012346",
         u"A/1/-1/T,-1,-0.6,-0.2,0.123456789012346"},
        {Side::Output, u"C\\1", u"2", u"2", u"C/2/-1/P,0.5"},
        {Side::Output, u"C\\-1", u"0.5", u"0.5", u"C/1/0.5/P,0.5"},
        {Side::Output, u"C\\P\\Point", u"-1", u"-1", u"C/1/-1/P,-1"},
        {Side::Output, u"C\\P\\Point", u"1", u"1", u"C/1/-1/P,1"},
    };
    for (const auto& [side, key, label, caption, texts] : cases) {
        SCOPED_TRACE(Narrow(key) + " to " + Narrow(label));
        Load(u"A/1/-1/T,-1,-0.6,-0.2,1", u"C/1/-1/P,0.5", u"A>T/C<P:1");
        TreeNode& node = Node(side, key);
        const bool isChange = node.Caption != caption;
        EXPECT_TRUE(Edit(side, key, label));
        EXPECT_EQ(node.Caption, caption);
        EXPECT_EQ(side == Side::Input ? ModelTexts().Inputs : ModelTexts().Outputs, texts);
        EXPECT_EQ(ModelTexts().Rules, u"A>T/C<P:1");
        EXPECT_EQ(Tree(side).Take(), std::vector{u"UpdateCaption " + node.Key});
        EXPECT_EQ(Page.Changed(), isChange);
    }
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(LabelEditsTest, ALabelThatIsLeftAsItIsChangesNothing) {
    // 1/3 has more digits than its text; 0.9 lies beyond the point before it, and "a b" is no name.
    Load(u"A/1/-1/T,-1,1,0.9,1;a b,0,0,1,1", u"C/1/-1/P,0.5", u"A>T/C<P:1");
    LinguisticVariable& variable = State().InputVariables->At(u"A");
    variable.MF.At(u"T").Points[0] = 1.0 / 3;
    variable.Name = u"A";
    Page.SetChanged(false);
    for (const TextView key :
         {u"A", u"A\\1", u"A\\-1", u"A\\T", u"A\\a b", u"A\\T\\Point:1", u"A\\T\\Point:3"}) {
        const Text label = Node(Side::Input, key).Caption;
        EXPECT_TRUE(Edit(Side::Input, key, label)) << Narrow(key);
        EXPECT_FALSE(Page.Changed()) << Narrow(key);
    }
    EXPECT_TRUE(Edit(Side::Output, u"C\\P\\Point", u"0.5"));
    EXPECT_TRUE(Edit(Side::Output, u"C\\P\\Point", u" 5E-1 "));
    EXPECT_FALSE(Page.Changed());
    EXPECT_EQ(variable.MF.At(u"T").Points[0], 1.0 / 3);
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    Page.SetChanged(true);
    EXPECT_TRUE(Edit(Side::Input, u"A", u"A"));
    EXPECT_TRUE(Page.Changed()) << "what was changed before still is";
}

TEST_F(LabelEditsTest, NumbersTellTheRangeThatTheyMayBeGiven) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    struct Case {
        Side Of;
        TextView Key;
        TextView Tip;
    };
    const Case cases[] = {
        {Side::Input, u"[Input]", u""},
        {Side::Input, u"A", u""},
        {Side::Input, u"A\\MF_1", u""},
        {Side::Input, u"B\\10", u"9 ..."},
        {Side::Input, u"B\\0", u"... 0"},
        {Side::Input, u"A\\MF_1\\Point:1", u"-1 ... -0,6"},
        {Side::Input, u"A\\MF_1\\Point:2", u"-1 ... -0,2"},
        {Side::Input, u"A\\MF_1\\Point:3", u"-0,6 ... 0,2"},
        {Side::Input, u"A\\MF_1\\Point:4", u"-0,2 ... 1"},
        {Side::Output, u"D\\100", u"75 ..."},
        {Side::Output, u"D\\0", u"... 50"},
        {Side::Output, u"D\\P\\Point", u"0 ... 100"},
    };
    Load();
    for (const auto& [side, key, tip] : cases) {
        EXPECT_EQ(Page.TipOf(side, Node(side, key)), tip) << Narrow(key);
    }
    Load(Inputs, Outputs, Rules, true);
    for (const auto& [side, key, tip] : cases) {
        EXPECT_EQ(Page.TipOf(side, Node(side, key)), u"") << "of a running control";
    }
}

TEST_F(LabelEditsTest, ABoundsKeyFollowsItsValueAndAPointsKeyItsName) {
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A\\1", u"2"));
    EXPECT_TRUE(Edit(Side::Input, u"A\\MF_2\\Point:4", u"1.5"));
    EXPECT_EQ(Node(Side::Input, u"A\\2").Tag, NodeTag::UBound);
    EXPECT_EQ(Node(Side::Input, u"A\\MF_2\\Point:4").Caption, u"1.5");
}

TEST_F(LabelEditsTest, InputBoundsMustDifferAndOutputBoundsNeedNot) {
    Load(u"A/1/0/T,0,0,0,0", u"C/1/0/P,0", u"A>T/C<P:1");
    EXPECT_FALSE(Edit(Side::Input, u"A\\1", u"0.0"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"The upper bound and lower bound cannot be equal!"));
    EXPECT_TRUE(Edit(Side::Output, u"C\\1", u"0"));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    EXPECT_EQ(ModelTexts(), (PlainTexts{u"A/1/0/T,0,0,0,0", u"C/0/0/P,0", u"A>T/C<P:1"}));
    Load(u"A/1/0/T,1,1,1,1", u"C/1/0/P,1", u"A>T/C<P:1");
    EXPECT_FALSE(Edit(Side::Input, u"A\\0", u"1"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"The upper bound and lower bound cannot be equal!"));
    EXPECT_TRUE(Edit(Side::Output, u"C\\0", u"1"));
}

TEST_F(LabelEditsTest, APointEditRecomputesTheExtentOfItsVariable) {
    Load();
    const LinguisticVariable& input = State().InputVariables->At(u"B");
    EXPECT_TRUE(Edit(Side::Input, u"B\\HI\\Point:4", u"9.5"));
    EXPECT_EQ(std::pair(input.Min, input.Max), std::pair(0.0, 9.5));
    EXPECT_TRUE(Edit(Side::Input, u"B\\LO\\Point:2", u"1"));
    EXPECT_TRUE(Edit(Side::Input, u"B\\LO\\Point:1", u"0.5"));
    EXPECT_EQ(std::pair(input.Min, input.Max), std::pair(0.5, 9.5));
    const LinguisticVariable& output = State().OutputVariables->At(u"D");
    EXPECT_TRUE(Edit(Side::Output, u"D\\P\\Point", u"80"));
    EXPECT_EQ(std::pair(output.Min, output.Max), std::pair(75.0, 80.0));
    EXPECT_EQ(output.MF.At(u"P").Points, (TrapezoidPoints{80, 80, 80, 80}));
    // The new extent is the limit of the bounds.
    EXPECT_FALSE(Edit(Side::Output, u"D\\100", u"79"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"Enter a number greater than 80!"));
}

TEST_F(LabelEditsTest, NumbersAreTypedInTheUsersForm) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    Load();
    EXPECT_TRUE(Edit(Side::Input, u"A\\MF_1\\Point:4", u"0,50"));
    EXPECT_EQ(Node(Side::Input, u"A\\MF_1\\Point:4").Caption, u"0,5");
    EXPECT_EQ(State().InputVariables->At(u"A").MF.At(u"MF_1").Points[3], 0.5);
    EXPECT_FALSE(Edit(Side::Input, u"A\\MF_1\\Point:3", u"0,75"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"Enter a number less than 0,5!"));
}

TEST_F(LabelEditsTest, RootsAreNotEdited) {
    Load();
    for (const Side side : {Side::Input, Side::Output}) {
        TreeNode& root = *Tree(side).Root;
        EXPECT_FALSE(Page.BeforeLabelEdit(side, root));
        EXPECT_FALSE(Page.AfterLabelEdit(side, root, u"Other"));
    }
    EXPECT_EQ(ModelTexts(), Loaded);
}

TEST_F(LabelEditsTest, EveryOtherNodeMayBeEdited) {
    Load();
    for (const TextView key : InputKeys) {
        EXPECT_TRUE(Page.BeforeLabelEdit(Side::Input, Node(Side::Input, key))) << Narrow(key);
    }
}

TEST_F(LabelEditsTest, ASecondReportOfAnEditDoesNothing) {
    Load();
    TreeNode& node = Node(Side::Input, u"A");
    EXPECT_TRUE(Page.BeforeLabelEdit(Side::Input, node));
    EXPECT_FALSE(Page.AfterLabelEdit(Side::Input, node, u"B"));
    EXPECT_FALSE(Page.AfterLabelEdit(Side::Input, node, u"B"));
    EXPECT_EQ(Prompts.Take(), Refusal(u"The identifier duplicates!"));
    EXPECT_TRUE(Page.BeforeLabelEdit(Side::Input, node));
    EXPECT_TRUE(Page.AfterLabelEdit(Side::Input, node, u"E"));
    EXPECT_FALSE(Page.AfterLabelEdit(Side::Input, node, u"F"));
    EXPECT_EQ(KeysOf(*State().InputVariables), Texts({u"E", u"B"}));
}

TEST_F(LabelEditsTest, AnEditThatBeganBeforeTheTreeWasFilledAnewIsDropped) {
    Load();
    Page.BeforeLabelEdit(Side::Input, Node(Side::Input, u"A"));
    Page.SelectionChanged(false);
    EXPECT_FALSE(Page.AfterLabelEdit(Side::Input, Node(Side::Input, u"A"), u"E"));
    EXPECT_EQ(ModelTexts(), Loaded);
}

} // namespace
} // namespace Quorvane::Editor
