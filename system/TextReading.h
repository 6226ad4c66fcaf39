// SPDX-License-Identifier: MIT
// What the readers of the definition texts have in common.
#pragma once

#include <vector>

#include "system/DefinitionTexts.h"

namespace Quorvane::System {

/// One of the three texts, with the errors that can be found in it.
class PartReader {
  public:
    PartReader(DefinitionPart part, TextView text) : Whole(text), part_(part) {}

    /// Throws DefinitionError at the begin of a piece of the text, or behind it.
    [[noreturn]] void Fail(TextView at, Text message) const;
    [[noreturn]] void FailBehind(TextView piece, Text message) const;

    /// A piece of a text that was split. A missing one is an error behind what was split.
    TextView Piece(const std::vector<TextView>& pieces, std::size_t index, TextView split,
                   TextView expected) const;

    /// A number in the fixed form, finite.
    double Number(TextView text) const;

    TextView Whole;

  private:
    DefinitionPart part_;
};

std::vector<InputVariable> ReadInputs(TextView plain);
std::vector<OutputVariable> ReadOutputs(TextView plain);
/// The rules over the variables of the system, which is the one they are for.
std::vector<Rule> ReadRules(TextView plain, const FuzzySystem& variables);

} // namespace Quorvane::System
