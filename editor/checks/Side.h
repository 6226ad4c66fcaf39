// SPDX-License-Identifier: MIT
// The two sides of a fuzzy system, and all that the editors do differently for them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "shared/Definition.h"

namespace Quorvane::Editor {

/// The inputs, which rules ask for, or the outputs, which they set.
enum class Side { Input, Output };

/// One point of a term, as a node of the tree: the last part of its key, and its image.
struct PointTraits {
    TextView Key;
    TextView Image;
};

/// The differences of the sides. Whatever is not here is the same for both.
struct SideTraits {
    /// The side's table in the model.
    std::optional<VariableDictionary> Definition::ProcessState::*Variables;
    /// Stands between a variable and its term in a rule text.
    char16_t TermMark;
    /// The points of a new term between the bounds, before rounding.
    TrapezoidPoints (*NewTermPoints)(double lower, double upper);
    /// Recomputes Max and Min of the variable with a name.
    void (*UpdateExtent)(TextView name);
    /// Whether an edited bound must differ from the other one; equal output bounds are accepted.
    bool ChecksBoundPair;

    TextView RootKey;
    std::int32_t RootTextId;
    TextView RootImage;
    TextView VariableImage;
    /// New variables have this name with a number behind it.
    TextView NewNameStem;
    /// The points that a term shows. An output term shows one, although it keeps four equal points.
    std::span<const PointTraits> Points;

    /// Names of the rule editor's run-time controls are a prefix and the variable's name.
    TextView LabelPrefix;
    TextView ListPrefix;
    /// The words before the first and each further variable in the headings of the rule list.
    std::int32_t FirstHeadingId;
    std::int32_t FurtherHeadingId;
};

/// The differences of a side; they live as long as the program.
const SideTraits& TraitsOf(Side side);

/// The side's variables in the model. Raises ObjectNotSet without a model.
VariableDictionary& VariablesOf(Side side);

} // namespace Quorvane::Editor
