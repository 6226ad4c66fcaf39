// SPDX-License-Identifier: MIT
// The checks behind the validation routines, as routines that raise, and how refusals are shown.
#pragma once

#include <optional>

#include "editor/checks/Prompt.h"
#include "shared/FisError.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::DesignTime {

inline constexpr std::size_t LongestIdentifier = 10;

/// Each raises an error with the object-error base plus the text id as its number, no source, and
/// the message, its "?" replaced by the limit.
void CheckIdentifier(TextView oldName, TextView newName, bool isTaken);
void CheckNumber(TextView text, std::optional<double> lower, std::optional<double> upper);
void CheckBoundsDiffer(TextView lower, TextView upper);

/// Whether an error is one that a check raises for what the user typed.
bool IsRefusal(const FisError& error);

/// Runs a body; an error that leaves it has text 36 as its source.
template <class Body>
decltype(auto) RunAsEditor(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const FisError& error) {
        throw FisError(error.Number, Main::GetText(TextIds::InferenceSystem), error.Description);
    }
}

/// Runs a check. A refusal is shown and false returned; any other error goes to the caller with
/// text 36 as its source.
template <class Check>
bool Accepts(Editor::Prompt& prompt, Check&& check) {
    return RunAsEditor([&] {
        try {
            std::forward<Check>(check)();
            return true;
        } catch (const FisError& error) {
            if (!IsRefusal(error)) {
                throw;
            }
            Editor::ShowRefusal(prompt, error.Description);
            return false;
        }
    });
}

} // namespace Quorvane::DesignTime
