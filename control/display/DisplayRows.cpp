// SPDX-License-Identifier: MIT
// Filling the lists of the control from the model and the values.
#include <new>
#include <optional>

#include "control/display/Display.h"
#include "control/display/DisplayWindow.h"
#include "shared/Definition.h"
#include "shared/NumberText.h"

namespace Quorvane {
namespace {

std::vector<ListRow> RowsOf(const VariableDictionary& variables) {
    std::vector<ListRow> rows;
    rows.reserve(variables.Count());
    for (const auto& [key, variable] : variables) {
        rows.push_back({key,
                        variable.Name + u" [" + UserNumberText(variable.LBound) + u", " +
                            UserNumberText(variable.UBound) + u"]",
                        {}});
    }
    return rows;
}

/// The value of a variable as a person reads it; nothing where it has no text form.
std::optional<Text> ShownValue(ValueDictionary& values, TextView key) noexcept {
    try {
        return UserText(values.Get(key));
    } catch (...) {
        return std::nullopt;
    }
}

/// Writes the values into the rows of their variables. Rows are found again after each value, since
/// a host's dictionary may run code that refills the lists.
void TakeValues(std::vector<ListRow>& rows, const std::optional<VariableDictionary>& variables,
                const std::shared_ptr<ValueDictionary>& current) {
    // Held: such code may assign another dictionary to the control, too.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const auto values = current;
    if (!values) {
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Text key = rows[i].Key;
        if (!variables || !variables->Exists(key)) {
            continue;
        }
        auto value = ShownValue(*values, key);
        if (value && i < rows.size() && rows[i].Key == key) {
            rows[i].Value = std::move(*value);
        }
    }
}

/// The same where nothing may be raised: without memory the remaining rows keep what they showed.
void UpdateRows(std::vector<ListRow>& rows, const std::optional<VariableDictionary>& variables,
                const std::shared_ptr<ValueDictionary>& values) noexcept {
    try {
        TakeValues(rows, variables, values);
    } catch (const std::bad_alloc&) {
        return;
    }
}

} // namespace

void Display::FillVariableLists() {
    lvwInput.Rows.clear();
    lvwOutput.Rows.clear();
    if (window_) {
        window_->ShowRows();
    }
    const Definition::ProcessState& state = Definition::State();
    lvwInput.Rows = RowsOf(Definition::Require(state.InputVariables));
    if (window_) {
        window_->ShowRows();
    }
    lvwOutput.Rows = RowsOf(Definition::Require(state.OutputVariables));
    if (window_) {
        window_->ShowRows();
    }
}

void Display::ShowValues() noexcept {
    // A host's dictionary may run code that ends the window, so it is looked for after each list.
    const Definition::ProcessState& state = Definition::State();
    UpdateRows(lvwInput.Rows, state.InputVariables, state.InputValues);
    if (window_) {
        window_->ShowInputValues();
    }
    UpdateRows(lvwOutput.Rows, state.OutputVariables, state.OutputValues);
    if (window_) {
        window_->ShowOutputValues();
    }
}

} // namespace Quorvane
