// SPDX-License-Identifier: MIT
// The fuzzy system of a newly created control.
#pragma once

#include "shared/Text.h"

namespace Quorvane::Main {

/// The built-in definition texts in their stored form: a proportional-derivative controller with
/// two inputs, one output and nine rules. A host that saves a form leaves them out.
TextView BuiltInInputs();
TextView BuiltInOutputs();
TextView BuiltInRules();

} // namespace Quorvane::Main
