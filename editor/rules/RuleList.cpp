// SPDX-License-Identifier: MIT
// The rows of the rule list, and their order.
#include "editor/rules/RuleList.h"

#include <algorithm>
#include <limits>

#include "editor/rules/RuleText.h"
#include "shared/NumberText.h"

namespace Quorvane::Editor {
namespace {

// Rules are the same to the list when they are the same key to the rule base.
constexpr KeyHash HashOf{KeyComparison::IgnoreCase};

/// A text that sorts without regard to case.
struct FoldedText {
    TextView Content;

    bool operator<(const FoldedText& other) const {
        return std::ranges::lexicographical_compare(Content, other.Content, {}, FoldCase, FoldCase);
    }
};

/// The order of keys, up or down.
struct Precedes {
    bool Descending;

    template <class Key>
    bool operator()(const Key& left, const Key& right) const {
        return Descending ? right < left : left < right;
    }
};

template <class Rows, class Predicate>
std::optional<std::size_t> IndexOf(const Rows& rows, Predicate wanted) {
    const auto found = std::ranges::find_if(rows, wanted);
    if (found == rows.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - rows.begin());
}

} // namespace

RuleList::RuleList(std::vector<Text> inputs, std::vector<Text> outputs)
    : inputs_(std::move(inputs)), outputs_(std::move(outputs)) {}

RuleList::Row RuleList::MakeRow(std::size_t number, Text rule) {
    const std::size_t hash = HashOf(SplitRule(rule).Head);
    return {number, std::move(rule), hash};
}

void RuleList::Fill(const RuleDictionary& rules) {
    std::vector<Row> rows;
    rows.reserve(rules.Count());
    for (const auto& [rule, content] : rules) {
        rows.push_back(MakeRow(rows.size() + 1, Text(rule)));
    }
    rows_ = std::move(rows);
    ApplyOrder();
}

std::size_t RuleList::Add(Text rule) {
    rows_.push_back(MakeRow(rows_.size() + 1, std::move(rule)));
    return Settle(rows_.size() - 1);
}

std::size_t RuleList::Replace(std::size_t row, Text rule) {
    rows_[row] = MakeRow(rows_[row].Number, std::move(rule));
    return Settle(row);
}

RuleOrder RuleList::NextOrder(std::size_t column) const {
    return {column, order_ && !order_->Descending};
}

void RuleList::Sort(RuleOrder order) {
    order_ = order;
    ApplyOrder();
}

/// Hands on what gives a row its key in the chosen order.
template <class Action>
void RuleList::WithKeys(Action action) const {
    const std::size_t column = order_->Column;
    if (column == 0) {
        action([](const Row& row) { return row.Number; });
    } else if (column + 1 == ColumnCount()) {
        action([](const Row& row) { return Weight(row); });
    } else {
        action([this, column](const Row& row) { return FoldedText{Term(row, column)}; });
    }
}

void RuleList::ApplyOrder() {
    if (order_) {
        WithKeys([this](auto keyOf) { SortRows(keyOf); });
    }
}

/// Sorts by keys that are computed once per row; they may view the row's text.
template <class KeyOf>
void RuleList::SortRows(KeyOf keyOf) {
    using Key = decltype(keyOf(rows_.front()));
    struct Keyed {
        Key SortKey;
        std::size_t Row;
    };
    std::vector<Keyed> keys;
    keys.reserve(rows_.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        keys.push_back({keyOf(rows_[i]), i});
    }
    std::ranges::stable_sort(keys, Precedes{order_->Descending}, &Keyed::SortKey);
    std::vector<Row> sorted;
    sorted.reserve(rows_.size());
    for (const Keyed& key : keys) {
        sorted.push_back(std::move(rows_[key.Row]));
    }
    rows_ = std::move(sorted);
}

/// Moves a row among the others, which are in order, to where it belongs: as near as it may be.
/// Returns its index.
std::size_t RuleList::Settle(std::size_t row) {
    if (!order_) {
        return row;
    }
    Row settled = std::move(rows_[row]);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    auto place = static_cast<std::ptrdiff_t>(row);
    WithKeys([&](auto keyOf) {
        const auto key = keyOf(settled);
        const Precedes precedes{order_->Descending};
        const auto first = std::ranges::lower_bound(rows_, key, precedes, keyOf);
        const auto last = std::ranges::upper_bound(rows_, key, precedes, keyOf);
        place = std::clamp(place, first - rows_.begin(), last - rows_.begin());
    });
    rows_.insert(rows_.begin() + place, std::move(settled));
    return static_cast<std::size_t>(place);
}

TextView RuleList::Term(const Row& row, std::size_t column) const {
    const RuleParts parts = SplitRule(row.Rule);
    const std::size_t variable = column - 1;
    return variable < inputs_.size()
               ? ShownTerm(parts.Antecedents, TraitsOf(Side::Input).TermMark, inputs_, variable)
               : ShownTerm(parts.Consequents, TraitsOf(Side::Output).TermMark, outputs_,
                           variable - inputs_.size());
}

double RuleList::Weight(const Row& row) {
    try {
        return ParseNumber(SplitRule(row.Rule).Weight);
    } catch (const FisError&) {
        return -std::numeric_limits<double>::infinity();
    }
}

Text RuleList::NumberCell(const Row& row) {
    return NumberText(static_cast<double>(row.Number));
}

Text RuleList::CellText(std::size_t row, std::size_t column) const {
    if (column == 0) {
        return NumberCell(rows_[row]);
    }
    if (column + 1 == ColumnCount()) {
        return UserWeightText(SplitRule(rows_[row].Rule).Weight);
    }
    return Text(Term(rows_[row], column));
}

std::optional<std::size_t> RuleList::FindNumber(std::size_t number) const {
    return IndexOf(rows_, [number](const Row& row) { return row.Number == number; });
}

std::optional<std::size_t> RuleList::FindRule(TextView rule) const {
    return IndexOf(rows_, [rule](const Row& row) { return SameName(row.Rule, rule); });
}

std::optional<std::size_t> RuleList::FindNumberFrom(std::size_t row, TextView digits) const {
    for (std::size_t i = 0; i < rows_.size() && !digits.empty(); ++i) {
        const std::size_t at = (row + i) % rows_.size();
        if (NumberCell(rows_[at]).starts_with(digits)) {
            return at;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> RuleList::FindHead(TextView head) const {
    return IndexOf(rows_, [head, hash = HashOf(head)](const Row& row) {
        return row.HeadHash == hash && SameName(SplitRule(row.Rule).Head, head);
    });
}

} // namespace Quorvane::Editor
