// SPDX-License-Identifier: MIT
// StoredSystem: what a form can know of a control's fuzzy system from its stored text properties.
#pragma once

#include <vector>

#include "shared/Text.h"

namespace Quorvane::Host {

/// An input or output variable with its universe.
struct StoredVariable {
    Text Name;
    double Lower = 0;
    double Upper = 1;
};

/// The variables of an `Inputs` or `Outputs` property in its stored form, which spells
/// "Name/Upper/Lower/terms|Name/...". What cannot be read is left out.
std::vector<StoredVariable> ReadStoredVariables(TextView stored);

} // namespace Quorvane::Host
