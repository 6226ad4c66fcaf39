// SPDX-License-Identifier: MIT
// The validation routines as the editors call them.
#include "editor/checks/DesignTime.h"

#include "editor/checks/Checks.h"
#include "editor/checks/Side.h"
#include "shared/NumberText.h"

namespace Quorvane::DesignTime {
namespace {

void UpdateExtent(LinguisticVariable& variable) {
    // The extremes start crossed over, so that the first term replaces both.
    variable.Min = variable.UBound;
    variable.Max = variable.LBound;
    for (const auto& [name, term] : variable.MF) {
        IncludeTerm(variable, term);
    }
}

} // namespace

bool ValidateIdentifier(TextView oldName, TextView newName, bool isTaken, Prompt& prompt) {
    return Accepts(prompt, [&] { CheckIdentifier(oldName, newName, isTaken); });
}

bool ValidateNumber(TextView text, std::optional<double> lower, std::optional<double> upper,
                    Prompt& prompt) {
    return Accepts(prompt, [&] { CheckNumber(text, lower, upper); });
}

bool ValidateBoundsDiffer(TextView lower, TextView upper, Prompt& prompt) {
    return Accepts(prompt, [&] { CheckBoundsDiffer(lower, upper); });
}

void UpdateInputExtent(TextView name) {
    UpdateExtent(Editor::VariablesOf(Editor::Side::Input).At(name));
}

void UpdateOutputExtent(TextView name) {
    UpdateExtent(Editor::VariablesOf(Editor::Side::Output).At(name));
}

Text NormalNumberText(TextView text) {
    try {
        return UserNumberText(ParseUserNumber(text));
    } catch (const FisError&) {
        return Text(text);
    }
}

} // namespace Quorvane::DesignTime
