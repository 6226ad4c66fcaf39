// SPDX-License-Identifier: MIT
// The checks on what a user types in the editors, and the extents of the variables.
#pragma once

#include <optional>

#include "editor/checks/Prompt.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane::DesignTime {

using Editor::Prompt;

/// Whether a name may replace another where isTaken says that the new one is in use already. A
/// name that differs in letter case only, or not at all, is always accepted. The checks after that,
/// in this order, and the text ids of their messages: in use (70), longer than 10 characters (75),
/// a digit first (76), anything but ASCII letters, digits and "_" (71). A refusal shows its message
/// and returns false. The empty name passes.
bool ValidateIdentifier(TextView oldName, TextView newName, bool isTaken, Prompt& prompt);

/// The same, with the dictionary in which names must be unique.
template <class Value>
bool ValidateIdentifier(TextView oldName, TextView newName,
                        const StringKeyedDictionary<Value>& names, Prompt& prompt) {
    return ValidateIdentifier(oldName, newName, names.Exists(newName), prompt);
}

/// Whether a text is a number in the user's locale (72) and within the given limits (73 below,
/// 74 above). The limits themselves pass, although the messages say "greater than" and "less
/// than". A refusal shows its message and returns false.
bool ValidateNumber(TextView text, std::optional<double> lower, std::optional<double> upper,
                    Prompt& prompt);

/// Whether two bounds differ as numbers; their order does not matter. Equal bounds show message 77
/// and return false. A text that does not convert raises TypeMismatch or Overflow.
bool ValidateBoundsDiffer(TextView lower, TextView upper, Prompt& prompt);

/// Recomputes Max and Min of the variable with a name from its terms. Without terms Min is UBound
/// and Max is LBound. Raises MissingKey or ObjectNotSet.
void UpdateInputExtent(TextView name);
void UpdateOutputExtent(TextView name);

/// A number as it is shown and stored: read in the user's locale and written with at most 15
/// digits, "0.50" -> "0.5". A text that is no number is returned as it is.
Text NormalNumberText(TextView text);

} // namespace Quorvane::DesignTime
