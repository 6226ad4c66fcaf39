// SPDX-License-Identifier: MIT
// Tests of the rule editor's measures: panels, scroll bars, columns and captions.
#include "editor/rules/RulePanel.h"

#include "editor/rules/RuleColumns.h"
#include "editor/rules/RuleEditor.h"
#include "tests/editor/EditorTest.h"

#include <cmath>
#include <iterator>

namespace Quorvane::Editor {
namespace {

using Definition::State;

class RulePanelTest : public EditorTest {};

/// A text as wide as ten times its length.
double TenPerCharacter(TextView text) {
    return 10.0 * static_cast<double>(text.size());
}

std::vector<RuleColumn> Columns() {
    return MakeRuleColumns(MakeRulePanel(Side::Input), MakeRulePanel(Side::Output),
                           TenPerCharacter);
}

std::vector<Text> Captions() {
    std::vector<Text> captions;
    for (const RuleColumn& column : Columns()) {
        captions.push_back(column.Caption);
    }
    return captions;
}

constexpr TextView ThreeInputs = u"A/1/0/Lo,0,0,1,1;Hi,0,0,1,1|Bee/1/0/X,0,0,1,1"
                                 u"|C/1/0/Z,0,0,1,1;Y,0,0,1,1;W,0,0,1,1";

TEST_F(RulePanelTest, ThreeInputsMakeAPanelOf2370) {
    Parse(ThreeInputs, u"O/1/0/P,0", u"");
    const RulePanel panel = MakeRulePanel(Side::Input);
    EXPECT_EQ(panel.Height, 2370);
    ASSERT_EQ(panel.Rows.size(), 3U);
    struct Expected {
        TextView Label;
        TextView Caption;
        TextView List;
        int Top;
        std::vector<Text> Items;
    };
    const Expected expected[] = {
        {u"lblInA", u"A =", u"lstInA", 120, Texts({u"[NONE]", u"Lo", u"Hi"})},
        {u"lblInBee", u"Bee =", u"lstInBee", 870, Texts({u"[NONE]", u"X"})},
        {u"lblInC", u"C =", u"lstInC", 1620, Texts({u"[NONE]", u"Z", u"Y", u"W"})},
    };
    for (std::size_t i = 0; i < 3; ++i) {
        const PanelRow& row = panel.Rows[i];
        const auto& [label, caption, list, top, items] = expected[i];
        EXPECT_EQ(row.LabelName, label);
        EXPECT_EQ(row.LabelCaption, caption);
        EXPECT_EQ(row.LabelArea, (TwipsArea{60, top, 1200, 250}));
        EXPECT_EQ(row.ListName, list);
        EXPECT_EQ(row.ListArea, (TwipsArea{1250, top, 1500, 650}));
        EXPECT_EQ(row.Items, items);
        EXPECT_EQ(row.Selected, 0U);
    }
}

TEST_F(RulePanelTest, OutputsHaveTheSameMeasuresAndTheirOwnNames) {
    Parse(u"A/1/0/X,0,0,1,1", u"A/1/0/P,0;Q,1|O/1/0/R,0", u"");
    const RulePanel panel = MakeRulePanel(Side::Output);
    EXPECT_EQ(panel.Height, 1620);
    EXPECT_EQ(panel.Rows[0].LabelName, u"lblOutA");
    EXPECT_EQ(panel.Rows[0].ListName, u"lstOutA");
    EXPECT_EQ(panel.Rows[0].Items, Texts({u"[NONE]", u"P", u"Q"}));
    EXPECT_EQ(panel.Rows[1].LabelArea, (TwipsArea{60, 870, 1200, 250}));
    EXPECT_EQ(panel.Rows[1].ListArea, (TwipsArea{1250, 870, 1500, 650}));
}

TEST_F(RulePanelTest, HeightsGrowByARowForEachVariable) {
    Text inputs;
    for (int count = 1; count <= 32; ++count) {
        inputs += (count == 1 ? u"V" : u"|V") + Text(static_cast<std::size_t>(count), u'x') +
                  u"/1/0/T,0,0,1,1";
        Parse(inputs, u"", u"");
        EXPECT_EQ(MakeRulePanel(Side::Input).Height, 750 * count + 120);
    }
}

TEST_F(RulePanelTest, WithoutVariablesThePanelIsEmpty) {
    Parse(u"A/1/0/X,0,0,1,1", u"", u"");
    const RulePanel panel = MakeRulePanel(Side::Output);
    EXPECT_TRUE(panel.Rows.empty());
    EXPECT_EQ(panel.Height, 120);
}

TEST_F(RulePanelTest, AVariableWithoutTermsOffersNoneAlone) {
    Parse(u"A/1/0/X,0,0,1,1", u"", u"");
    State().InputVariables->At(u"A").MF.RemoveAll();
    EXPECT_EQ(MakeRulePanel(Side::Input).Rows[0].Items, Texts({u"[NONE]"}));
}

TEST_F(RulePanelTest, ScrollsFromTheHeightOfItsFrameOn) {
    struct Case {
        int Inner;
        bool Visible;
        int Max;
    };
    const Case cases[] = {{1000, true, 1430}, {2369, true, 61}, {2370, false, 60},
                          {2371, false, 59},  {2430, false, 0}, {9000, false, 0}};
    for (const auto& [inner, visible, max] : cases) {
        const PanelScroll scroll = PanelScrollFor(2370, inner);
        EXPECT_EQ(scroll.Visible, visible) << inner;
        EXPECT_EQ(scroll.Max, max) << inner;
    }
    EXPECT_EQ(PanelScrollStep, 750);
}

TEST_F(RulePanelTest, TheItemsOfAListBoxShareItsRoom) {
    struct Case {
        int Room;
        int Line;
        int Item;
    };
    const Case cases[] = {{39, 13, 13}, {61, 19, 20}, {83, 26, 27}, {39, 14, 19},
                          {12, 13, 13}, {0, 13, 13},  {39, 0, 0}};
    for (const auto& [room, line, item] : cases) {
        EXPECT_EQ(ItemHeightIn(room, line), item) << room << ' ' << line;
    }
}

TEST_F(RulePanelTest, ColumnsAreHeadedInTheOrderOfTheVariables) {
    Parse(ThreeInputs, u"O1/1/0/P,0|O2/1/0/P,0|O3/1/0/P,0", u"");
    struct Expected {
        TextView Key;
        TextView Caption;
        int Width;
        ColumnAlignment Alignment;
    };
    constexpr auto left = ColumnAlignment::Left;
    // Ten for each character: twice for the first and the last, 1.25 times for the others.
    const Expected expected[] = {
        {u"[NUMBER]", u"No.", 60, left},      {u"A", u"IF  A  IS", 113, left},
        {u"Bee", u"AND  Bee  IS", 150, left}, {u"C", u"AND  C  IS", 125, left},
        {u"O1", u"THEN  O1  IS", 150, left},  {u"O2", u"O2  IS", 75, left},
        {u"O3", u"O3  IS", 75, left},         {u"[WEIGHT]", u"Weight", 120, ColumnAlignment::Right},
    };
    const std::vector<RuleColumn> columns = Columns();
    ASSERT_EQ(columns.size(), std::size(expected));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(columns[i].Key, expected[i].Key);
        EXPECT_EQ(columns[i].Caption, expected[i].Caption);
        EXPECT_EQ(columns[i].Width, expected[i].Width) << Narrow(columns[i].Caption);
        EXPECT_EQ(columns[i].Alignment, expected[i].Alignment);
    }
}

/// The widths of columns that are to hold so many rules. A character takes ten times the scale in
/// picRule, ten in a cell and eight in a heading; beside a cell stand 20, beside a heading 30.
std::vector<int> FittingWidths(std::size_t rules) {
    const RuleListMeasures texts{
        .Heading = [](TextView text) { return 8.0 * static_cast<double>(text.size()) + 30; },
        .Cell = [](TextView text) { return TenPerCharacter(text) + 20; }};
    std::vector<int> widths;
    for (const RuleColumn& column :
         FitRuleColumns(MakeRulePanel(Side::Input), MakeRulePanel(Side::Output), rules, texts,
                        [](double scale) {
                            return [scale](TextView text) { return scale * TenPerCharacter(text); };
                        })) {
        widths.push_back(column.Width);
    }
    return widths;
}

TEST_F(RulePanelTest, ColumnsAreAsWideAsTheTextsInThemAsk) {
    struct Case {
        TextView Outputs;
        std::size_t Rules;
        double Scale;
    };
    const Case cases[] = {
        // "No." is 60 wide, which holds 4 digits and "[NONE]", of 80, in "IF  Abc  IS" of 137.5.
        {u"Temper/1/0/P,0", 9999, 1},
        {u"Temper/1/0/P,0", 32768, 1.2}, // 70 for the digits
        // "[NONE]" in "B  IS", which is 62.5 wide.
        {u"Temper/1/0/P,0|B/1/0/P,0", 9, 1.3},
        {u"Temper/1/0/P,0|B/1/0/Medium10,0", 9, 1.6},
        // It would have to be 2.4 times as large.
        {u"Temper/1/0/P,0|B/1/0/Medium1234567,0", 9, 2},
    };
    for (const auto& [outputs, rules, scale] : cases) {
        Parse(u"Abc/1/0/X,0,0,1,1", outputs, u"");
        const auto width = [scale = scale](double factor, double characters) {
            return static_cast<int>(std::lround(factor * scale * 10 * characters));
        };
        std::vector<int> expected{width(2, 3), width(1.25, 11), width(1.25, 16)};
        if (outputs.find(u'|') != TextView::npos) {
            expected.push_back(width(1.25, 5));
        }
        expected.push_back(width(2, 6));
        EXPECT_EQ(FittingWidths(rules), expected) << Narrow(outputs) << ' ' << rules;
    }
}

TEST_F(RulePanelTest, AHeadingThatIsWiderThanItsColumnMakesTheFontLarger) {
    // "编号" and "权值" have columns of 40 and take 46 with what stands beside them.
    State().LanguageId = Chinese;
    Parse(u"Abcdefg/1/0/X,0,0,1,1", u"", u"");
    EXPECT_EQ(FittingWidths(9), (std::vector<int>{48, 180, 48}));
}

TEST_F(RulePanelTest, ColumnsAreHeadedInChinese) {
    State().LanguageId = Chinese;
    Parse(u"A/1/0/X,0,0,1,1|B/1/0/X,0,0,1,1", u"O/1/0/P,0|Q/1/0/P,0", u"");
    EXPECT_EQ(Captions(),
              Texts({u"编号", u"如果 A 为", u"而且 B 为", u"那么 O 为", u"Q 为", u"权值"}));
}

TEST_F(RulePanelTest, WithoutOutputsThereIsNoThen) {
    Parse(u"A/1/0/X,0,0,1,1", u"", u"");
    EXPECT_EQ(Captions(), Texts({u"No.", u"IF  A  IS", u"Weight"}));
    Parse(u"", u"", u"");
    EXPECT_EQ(Captions(), Texts({u"No.", u"Weight"}));
}

TEST_F(RulePanelTest, AnInputAndAnOutputMayShareAName) {
    Parse(u"A/1/0/X,0,0,1,1", u"A/1/0/P,0", u"");
    EXPECT_EQ(Captions(), Texts({u"No.", u"IF  A  IS", u"THEN  A  IS", u"Weight"}));
}

TEST_F(RulePanelTest, RaisesWithoutAModel) {
    for (const Side side : {Side::Input, Side::Output}) {
        EXPECT_EQ(Raised([&] { MakeRulePanel(side); }), PlatformError(RuntimeError::ObjectNotSet));
    }
}

TEST_F(RulePanelTest, TheFixedCaptionsAreThoseOfTheLanguage) {
    const auto all = [] {
        const RuleEditorCaptions captions = CurrentRuleEditorCaptions();
        return std::vector{captions.RuleBase, captions.Antecedent, captions.Consequent,
                           captions.Weight,   captions.Add,        captions.Delete,
                           captions.Close};
    };
    EXPECT_EQ(all(), Texts({u"Rule Base", u"Antecedent", u"Consequent", u"Weight", u"Add Rule",
                            u"Delete Rule", u"Close"}));
    State().LanguageId = Chinese;
    EXPECT_EQ(all(),
              Texts({u"规则库", u"前件", u"后件", u"权值", u"添加规则", u"删除规则", u"关闭"}));
}

TEST_F(RulePanelTest, RowsArePurple) {
    EXPECT_EQ(RuleRowColor(), 0x800080U);
}

} // namespace
} // namespace Quorvane::Editor
