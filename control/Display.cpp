// SPDX-License-Identifier: MIT
// Filling the lists of the control from the model and the values.
#include "control/Display.h"

#include <new>

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

void ShowRows(std::vector<ListRow>& rows, const std::optional<VariableDictionary>& variables,
              const std::shared_ptr<ValueDictionary>& values) noexcept {
    if (!values) {
        return;
    }
    for (ListRow& row : rows) {
        if (variables && variables->Exists(row.Key)) {
            if (auto value = ShownValue(*values, row.Key)) {
                row.Value = std::move(*value);
            }
        }
    }
}

} // namespace

void Display::Repaint() noexcept {
    if (Surface) {
        ::RedrawWindow(Surface, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
}

void Display::ShowError() noexcept {
    sbMessage.HasErrorPicture = true;
    try {
        sbMessage.Message = Definition::CurrentErrorText();
    } catch (const std::bad_alloc&) {
        sbMessage.Message.clear();
    }
}

void Display::FillVariableLists() {
    lvwInput.Rows.clear();
    lvwOutput.Rows.clear();
    const Definition::ProcessState& state = Definition::State();
    lvwInput.Rows = RowsOf(Definition::Require(state.InputVariables));
    lvwOutput.Rows = RowsOf(Definition::Require(state.OutputVariables));
}

void Display::ShowValues() noexcept {
    const Definition::ProcessState& state = Definition::State();
    const std::shared_ptr<ValueDictionary> inputs = state.InputValues;
    const std::shared_ptr<ValueDictionary> outputs = state.OutputValues;
    ShowRows(lvwInput.Rows, state.InputVariables, inputs);
    ShowRows(lvwOutput.Rows, state.OutputVariables, outputs);
}

} // namespace Quorvane
