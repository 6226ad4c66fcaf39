// SPDX-License-Identifier: MIT
// Tests of the rule texts' parts and of the rows of the rule list.
#include "editor/rules/RuleList.h"

#include "editor/rules/RuleText.h"
#include "tests/core/TestPlatform.h"
#include "tests/editor/EditorTest.h"

namespace Quorvane::Editor {
namespace {

class RuleListTest : public EditorTest {
  protected:
    void Fill(const std::vector<Text>& rules) {
        RuleDictionary dictionary(KeyComparison::IgnoreCase);
        for (const Text& rule : rules) {
            dictionary.Add(rule);
        }
        List.Fill(dictionary);
    }

    std::vector<Text> Cells(std::size_t row) const {
        std::vector<Text> cells;
        for (std::size_t column = 0; column < List.ColumnCount(); ++column) {
            cells.push_back(List.CellText(row, column));
        }
        return cells;
    }

    /// The numbers of the rows from top to bottom.
    std::vector<std::size_t> Numbers() const {
        std::vector<std::size_t> numbers;
        for (std::size_t row = 0; row < List.Count(); ++row) {
            numbers.push_back(List.Number(row));
        }
        return numbers;
    }

    RuleList List{{u"A", u"B"}, {u"C"}};
};

using RowNumbers = std::vector<std::size_t>;

TEST_F(RuleListTest, SplitsRules) {
    struct Case {
        TextView Rule;
        TextView Head;
        TextView Antecedents;
        TextView Consequents;
        TextView Weight;
    };
    const Case cases[] = {
        {u"A>X;B>Y/C<P;D<Q:0.5", u"A>X;B>Y/C<P;D<Q", u"A>X;B>Y", u"C<P;D<Q", u"0.5"},
        {u"A>[NONE]/C<[NONE]:1", u"A>[NONE]/C<[NONE]", u"A>[NONE]", u"C<[NONE]", u"1"},
        {u"", u"", u"", u"", u""},
        {u":", u"", u"", u"", u""},
        {u"/", u"/", u"", u"", u""},
        {u"A>X", u"A>X", u"A>X", u"", u""},
        {u"A>X:1", u"A>X", u"A>X", u"", u"1"},
        {u"A>X/C<P", u"A>X/C<P", u"A>X", u"C<P", u""},
        {u"A>X/C<P/D<Q:1:2", u"A>X/C<P/D<Q", u"A>X", u"C<P", u"1"},
        {u":A>X/C<P", u"", u"", u"", u"A>X/C<P"},
    };
    for (const auto& [rule, head, antecedents, consequents, weight] : cases) {
        const RuleParts parts = SplitRule(rule);
        EXPECT_EQ(parts.Head, head) << Narrow(rule);
        EXPECT_EQ(parts.Antecedents, antecedents) << Narrow(rule);
        EXPECT_EQ(parts.Consequents, consequents) << Narrow(rule);
        EXPECT_EQ(parts.Weight, weight) << Narrow(rule);
    }
}

TEST_F(RuleListTest, FindsTheTermOfAVariable) {
    struct Case {
        TextView List;
        TextView Variable;
        std::optional<TextView> Term;
    };
    const Case cases[] = {
        {u"A>X;B>Y", u"A", u"X"}, {u"A>X;B>Y", u"b", u"Y"}, {u"A>X;B>Y", u"C", std::nullopt},
        {u"BA>X", u"A", {}},      {u"A>X;A>Y", u"A", u"X"}, {u"", u"A", std::nullopt},
        {u"A", u"A", u""},        {u";;A>X", u"A", u"X"},   {u"A>X>Y", u"A", u"X>Y"},
        {u"A<X", u"A", {}},       {u"A>", u"A", u""},
    };
    for (const auto& [list, variable, term] : cases) {
        EXPECT_EQ(TermOf(list, u'>', variable), term) << Narrow(list);
        const auto terms = TermsOf(list, u'>');
        const TextView* const found = terms.Find(variable);
        EXPECT_EQ(found ? std::optional(*found) : std::nullopt, term) << Narrow(list);
    }
    EXPECT_EQ(TermOf(u"C<P;D<Q", u'<', u"D"), u"Q");
}

TEST_F(RuleListTest, ShowsWeightsInTheUsersForm) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    const std::pair<TextView, TextView> cases[] = {
        {u"0.5", u"0,5"}, {u"1", u"1"}, {u"0.50", u"0,5"}, {u"heavy", u"heavy"}, {u"", u""}};
    for (const auto& [weight, shown] : cases) {
        EXPECT_EQ(UserWeightText(weight), shown);
    }
}

TEST_F(RuleListTest, ARowHasItsNumberItsTermsAndItsWeight) {
    Fill({u"A>X;B>[NONE]/C<P:1", u"B>Y;A>Z/C<Q:0.5"});
    EXPECT_EQ(List.Count(), 2U);
    EXPECT_EQ(List.ColumnCount(), 5U);
    EXPECT_EQ(Cells(0), Texts({u"1", u"X", u"[NONE]", u"P", u"1"}));
    EXPECT_EQ(Cells(1), Texts({u"2", u"Z", u"Y", u"Q", u"0.5"}));
    EXPECT_EQ(List.Rule(1), u"B>Y;A>Z/C<Q:0.5");
}

TEST_F(RuleListTest, DamagedRulesHaveEmptyCells) {
    const std::pair<Text, std::vector<Text>> cases[] = {
        {u"", Texts({u"1", u"", u"", u"", u""})},
        {u":::", Texts({u"1", u"", u"", u"", u""})},
        {u"nonsense", Texts({u"1", u"", u"", u"", u""})},
        {u"A>X", Texts({u"1", u"X", u"", u"", u""})},
        {u"A>X;A>Y/C<P:much", Texts({u"1", u"X", u"", u"P", u"much"})},
        {u"A<X/C>P:1", Texts({u"1", u"", u"", u"", u"1"})},
        {u";;/;;:0.5", Texts({u"1", u"", u"", u"", u"0.5"})},
    };
    for (const auto& [rule, cells] : cases) {
        Fill({rule});
        EXPECT_EQ(Cells(0), cells) << Narrow(rule);
    }
}

TEST_F(RuleListTest, ARuleThatNamesAVariableThatIsGoneShowsItsTermInACellThatItLeavesFree) {
    const std::pair<Text, std::vector<Text>> cases[] = {
        {u"Q>X/R<P:1", Texts({u"1", u"X", u"", u"P", u"1"})},
        {u"A>X;Q>Y/C<P:1", Texts({u"1", u"X", u"Y", u"P", u"1"})},
        {u"Q>Y;B>X/C<P:1", Texts({u"1", u"Y", u"X", u"P", u"1"})},
        {u"Q>Y;A>X/C<P:1", Texts({u"1", u"X", u"Y", u"P", u"1"})},
        {u"Q>Y;R>X;S>Z/C<P;D<O:1", Texts({u"1", u"Y", u"X", u"P", u"1"})},
    };
    for (const auto& [rule, cells] : cases) {
        Fill({rule});
        EXPECT_EQ(Cells(0), cells) << Narrow(rule);
    }
    Fill({u"Q>b;R>c/C<P:1", u"A>a;B>d/C<P:1"});
    List.SortBy(1);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1})) << "as it is shown";
}

TEST_F(RuleListTest, AnInputAndAnOutputOfOneNameHaveTheirOwnCells) {
    List = RuleList({u"A"}, {u"A"});
    Fill({u"A>X/A<P:1"});
    EXPECT_EQ(Cells(0), Texts({u"1", u"X", u"P", u"1"}));
}

TEST_F(RuleListTest, SortsUpAndThenDown) {
    struct Case {
        std::size_t Column;
        RowNumbers Up;
        RowNumbers Down;
    };
    std::vector<Text> rules{u"A>b;B>X/C<P:0.5", u"A>B;B>Z/C<Q:1E-05", u"A>a;B>Y/C<P:1",
                            u"A>c;B>W/C<R:0.06"};
    const Case cases[] = {
        {0, {1, 2, 3, 4}, {4, 3, 2, 1}},
        // Without regard to case; equal rows stay in their order.
        {1, {3, 1, 2, 4}, {4, 1, 2, 3}},
        {2, {4, 1, 3, 2}, {2, 3, 1, 4}},
        {3, {1, 3, 2, 4}, {4, 2, 1, 3}},
        // As numbers: as texts 1 came before 1E-05.
        {4, {2, 4, 1, 3}, {3, 1, 4, 2}},
    };
    for (const auto& [column, up, down] : cases) {
        List = RuleList({u"A", u"B"}, {u"C"});
        Fill(rules);
        List.SortBy(column);
        EXPECT_EQ(Numbers(), up) << "column " << column;
        List.SortBy(column);
        EXPECT_EQ(Numbers(), down) << "column " << column;
    }
}

TEST_F(RuleListTest, AnOrderThatIsChosenIsTheOneThatTheNextClickTurns) {
    Fill({u"A>a;B>X/C<P:1", u"A>b;B>Y/C<P:1"});
    EXPECT_EQ(List.Order(), std::nullopt);
    EXPECT_EQ(List.NextOrder(2), (RuleOrder{2, false}));
    List.Sort({1, true});
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1}));
    List.Sort({1, true});
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1})) << "chosen again it stays";
    EXPECT_EQ(List.Order(), (RuleOrder{1, true}));
    List.Sort({2, false});
    EXPECT_EQ(List.NextOrder(2), (RuleOrder{2, true}));
}

TEST_F(RuleListTest, SortsNumbersBeyondNineAsNumbers) {
    std::vector<Text> rules;
    for (char16_t letter = u'a'; letter <= u'l'; ++letter) {
        rules.push_back(Text(u"A>") + letter + u";B>Y/C<P:1");
    }
    Fill(rules);
    List.SortBy(0);
    EXPECT_EQ(Numbers(), (RowNumbers{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST_F(RuleListTest, TheOrderTogglesWithEveryClickWhateverTheColumn) {
    Fill({u"A>b;B>X/C<P:1", u"A>a;B>Y/C<P:1"});
    List.SortBy(1);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1}));
    List.SortBy(2);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1}));
    List.SortBy(1);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 1}));
    List.SortBy(1);
    EXPECT_EQ(Numbers(), (RowNumbers{1, 2}));
}

TEST_F(RuleListTest, AWeightThatIsNoNumberSortsFirst) {
    Fill({u"A>X/C<P:0", u"A>Y/C<P:heavy", u"A>Z/C<P"});
    List.SortBy(4);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 3, 1}));
}

TEST_F(RuleListTest, KeepsItsOrderWhenItIsFilledAnew) {
    Fill({u"A>b;B>X/C<P:1", u"A>a;B>Y/C<P:1"});
    List.SortBy(1);
    Fill({u"A>c;B>X/C<P:1", u"A>b;B>X/C<P:1", u"A>a;B>X/C<P:1"});
    EXPECT_EQ(Numbers(), (RowNumbers{3, 2, 1}));
}

TEST_F(RuleListTest, ANewRowGoesWhereTheOrderSays) {
    const std::vector<Text> rules{u"A>d;B>X/C<P:1", u"A>b;B>Z/C<P:0.5", u"A>c;B>Y/C<P:0.25"};
    struct Case {
        std::optional<RuleOrder> Order;
        std::size_t Row;
        RowNumbers Numbers;
    };
    const Case cases[] = {
        {std::nullopt, 3, {1, 2, 3, 4}},
        {RuleOrder{0, false}, 3, {1, 2, 3, 4}},
        {RuleOrder{0, true}, 0, {4, 3, 2, 1}},
        // Behind the rows that are equal, up and down.
        {RuleOrder{1, false}, 2, {2, 3, 4, 1}},
        {RuleOrder{1, true}, 2, {1, 3, 4, 2}},
        {RuleOrder{2, false}, 0, {4, 1, 3, 2}},
        {RuleOrder{4, false}, 1, {3, 4, 2, 1}},
        {RuleOrder{4, true}, 2, {1, 2, 4, 3}},
    };
    for (const auto& [order, row, numbers] : cases) {
        List = RuleList({u"A", u"B"}, {u"C"});
        Fill(rules);
        if (order) {
            List.Sort(*order);
        }
        EXPECT_EQ(List.Add(u"A>C;B>A/C<P:0.3"), row);
        EXPECT_EQ(Numbers(), numbers);
    }
    List = RuleList({u"A", u"B"}, {u"C"});
    List.Sort({1, false});
    EXPECT_EQ(List.Add(u"A>c;B>A/C<P:1"), 0U);
}

TEST_F(RuleListTest, ARowWithAnotherRuleGoesWhereTheOrderSays) {
    Fill({u"A>a;B>X/C<P:1", u"A>a;B>Y/C<P:0.5", u"A>a;B>Z/C<P:0.25"});
    EXPECT_EQ(List.Replace(1, u"A>a;B>Y/C<P:0.125"), 1U);
    EXPECT_EQ(Numbers(), (RowNumbers{1, 2, 3})) << "without an order";
    List.Sort({1, true});
    EXPECT_EQ(List.Replace(1, u"A>a;B>Y/C<P:0.5"), 1U) << "among equal ones it stays";
    EXPECT_EQ(Numbers(), (RowNumbers{1, 2, 3}));
    List.Sort({4, false});
    EXPECT_EQ(Numbers(), (RowNumbers{3, 2, 1}));
    EXPECT_EQ(List.Replace(0, u"A>a;B>Z/C<P:0.75"), 1U);
    EXPECT_EQ(Numbers(), (RowNumbers{2, 3, 1}));
    EXPECT_EQ(Cells(1), Texts({u"3", u"a", u"Z", u"P", u"0.75"}));
}

TEST_F(RuleListTest, ANumberIsFoundByItsFirstDigitsFromARowOn) {
    std::vector<Text> rules;
    for (char16_t letter = u'a'; letter <= u'l'; ++letter) {
        rules.push_back(Text(u"A>") + letter + u";B>Y/C<P:1");
    }
    Fill(rules);
    List.Sort({0, true});
    EXPECT_EQ(List.FindNumberFrom(0, u"1"), 0U) << "12";
    EXPECT_EQ(List.FindNumberFrom(1, u"1"), 1U) << "11";
    EXPECT_EQ(List.FindNumberFrom(3, u"1"), 11U) << "1";
    EXPECT_EQ(List.FindNumberFrom(0, u"10"), 2U);
    EXPECT_EQ(List.FindNumberFrom(3, u"12"), 0U) << "round the end";
    EXPECT_EQ(List.FindNumberFrom(12, u"5"), 7U);
    EXPECT_EQ(List.FindNumberFrom(0, u"13"), std::nullopt);
    EXPECT_EQ(List.FindNumberFrom(0, u"x"), std::nullopt);
    EXPECT_EQ(List.FindNumberFrom(0, u""), std::nullopt);
    Fill({});
    EXPECT_EQ(List.FindNumberFrom(0, u"1"), std::nullopt);
}

TEST_F(RuleListTest, FindsRowsWithoutRegardToCase) {
    Fill({u"A>X/C<P:1", u"A>X/C<P:0.5", u"A>Y/C<P:1"});
    EXPECT_EQ(List.FindHead(u"a>x/c<p"), 0U);
    EXPECT_EQ(List.FindHead(u"A>Y/C<P"), 2U);
    EXPECT_EQ(List.FindHead(u"A>Z/C<P"), std::nullopt);
    EXPECT_EQ(List.FindHead(u"A>X/C<P:1"), std::nullopt);
    EXPECT_EQ(List.FindRule(u"a>X/C<P:0.5"), 1U);
    EXPECT_EQ(List.FindRule(u"A>X/C<P"), std::nullopt);
    EXPECT_EQ(List.FindNumber(3), 2U);
    EXPECT_EQ(List.FindNumber(4), std::nullopt);
    EXPECT_EQ(List.FindNumber(0), std::nullopt);
    EXPECT_EQ(List.Replace(2, u"A>Z/C<P:1"), 2U);
    EXPECT_EQ(List.FindHead(u"A>Y/C<P"), std::nullopt);
    EXPECT_EQ(List.FindHead(u"A>Z/C<P"), 2U);
}

TEST_F(RuleListTest, AnEmptyListSortsAndFindsNothing) {
    for (std::size_t column = 0; column < List.ColumnCount(); ++column) {
        List.SortBy(column);
    }
    EXPECT_EQ(List.Count(), 0U);
    EXPECT_EQ(List.FindHead(u""), std::nullopt);
}

} // namespace
} // namespace Quorvane::Editor
