// SPDX-License-Identifier: MIT
// The rows of the rule list, and their order.
#pragma once

#include <optional>
#include <vector>

#include "editor/checks/Side.h"

namespace Quorvane::Editor {

/// By which column the rows are sorted, and which way.
struct RuleOrder {
    std::size_t Column = 0;
    bool Descending = false;

    bool operator==(const RuleOrder&) const = default;
};

/// The rules as rows of a list that asks for its cells when it shows them. It keeps each rule's
/// text, as the model can be replaced while the list is open.
class RuleList {
  public:
    /// A list for the given variables, whose columns are: number, inputs, outputs, weight.
    RuleList(std::vector<Text> inputs, std::vector<Text> outputs);

    /// Replaces the rows by those of a rule base, numbered from 1, in the chosen order.
    void Fill(const RuleDictionary& rules);

    /// Adds a row with the next number where the order says, at the end without one. Returns its
    /// index.
    std::size_t Add(Text rule);

    /// Gives a row another rule. It keeps its number, and its place unless the order says another.
    /// Returns its index.
    std::size_t Replace(std::size_t row, Text rule);

    /// Sorts the rows by a column: the number and the weight as numbers, a weight that is none
    /// before all others; terms as texts without regard to case. Rows that are equal stay in their
    /// order.
    void Sort(RuleOrder order);

    /// The order that a click on the header of a column asks for: the first one sorts up, and each
    /// further one the other way, whatever its column.
    RuleOrder NextOrder(std::size_t column) const;
    void SortBy(std::size_t column) { Sort(NextOrder(column)); }

    /// The chosen order; none before the first.
    const std::optional<RuleOrder>& Order() const { return order_; }

    std::size_t Count() const { return rows_.size(); }
    std::size_t ColumnCount() const { return inputs_.size() + outputs_.size() + 2; }

    const Text& Rule(std::size_t row) const { return rows_[row].Rule; }

    /// The row's running number, from 1.
    std::size_t Number(std::size_t row) const { return rows_[row].Number; }

    /// What a cell shows. A variable that the rule does not mention has the cell of one that is no
    /// longer there, or an empty one.
    Text CellText(std::size_t row, std::size_t column) const;

    /// The index of the row with a number or a rule; nothing where there is none.
    std::optional<std::size_t> FindNumber(std::size_t number) const;
    std::optional<std::size_t> FindRule(TextView rule) const;

    /// The index of the first row, from one on and round the end, whose number begins with digits.
    std::optional<std::size_t> FindNumberFrom(std::size_t row, TextView digits) const;

    /// The index of the first row whose antecedents and consequents are those given.
    std::optional<std::size_t> FindHead(TextView head) const;

  private:
    struct Row {
        std::size_t Number;
        Text Rule;
        /// Of the antecedents and consequents, so that a row is found without comparing all texts.
        std::size_t HeadHash;
    };

    static Row MakeRow(std::size_t number, Text rule);
    TextView Term(const Row& row, std::size_t column) const;
    static Text NumberCell(const Row& row);
    static double Weight(const Row& row);
    template <class Action>
    void WithKeys(Action action) const;
    void ApplyOrder();
    template <class KeyOf>
    void SortRows(KeyOf keyOf);
    std::size_t Settle(std::size_t row);

    std::vector<Text> inputs_;
    std::vector<Text> outputs_;
    std::vector<Row> rows_;
    std::optional<RuleOrder> order_;
};

} // namespace Quorvane::Editor
