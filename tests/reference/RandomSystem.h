// SPDX-License-Identifier: MIT
// Fuzzy systems made up at random, with the inputs that are worth trying on them.
#pragma once

#include <vector>

#include "shared/LinguisticVariable.h"
#include "shared/Text.h"
#include "shared/Value.h"
#include "tests/reference/Random.h"

namespace Quorvane::Reference {

/// The three definition texts of a system, plain.
struct SystemTexts {
    Text Inputs;
    Text Outputs;
    Text Rules;
};

/// How large and how odd a made-up system may be.
struct SystemLimits {
    std::uint32_t Inputs = 4;
    std::uint32_t Terms = 5;
    std::uint32_t Outputs = 3;
    std::uint32_t Rules = 20;
    /// The share of systems, in percent, in which each of these occurs: names that differ from the
    /// variable's in case, an output that not every rule names, a rule that does not prepare.
    std::uint32_t OddNames = 15;
    std::uint32_t OddOutputs = 15;
    std::uint32_t BadRules = 3;
    /// The share of systems, in percent, whose rules are the combinations of terms.
    std::uint32_t Grids = 0;
};

/// Makes up a system whose texts parse. Shoulders, triangles, singletons, terms beyond the universe
/// and with unordered points, bounds the wrong way round, weights of zero and below, "[NONE]" and
/// numbers near the limits of a Double all occur.
SystemTexts MakeSystem(Choices& choices, const SystemLimits& limits = {});

/// The numbers at which something changes in a variable: both bounds, and every point of its terms.
std::vector<double> EdgesOf(const LinguisticVariable& variable);

/// A number worth trying on a variable with these edges: at one, next to one, between two, far
/// outside, or not finite.
double MakeNumber(Choices& choices, const std::vector<double>& edges);

/// The same as a host may give it: mostly a number, at times a text, no number at all, or nothing.
Value MakeValue(Choices& choices, const std::vector<double>& edges);

} // namespace Quorvane::Reference
