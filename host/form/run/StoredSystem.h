// SPDX-License-Identifier: MIT
// StoredSystem: what a form can know of a control's fuzzy system from its stored text properties.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quorvane::Host {

/// An input or output variable with its universe.
struct StoredVariable {
    std::wstring Name;
    double Lower = 0;
    double Upper = 1;
};

/// The variables of an `Inputs` or `Outputs` property: two hexadecimal digits for each character,
/// the low one first, that spell "Name/Upper/Lower/terms|Name/...". What cannot be read is left
/// out.
std::vector<StoredVariable> ReadStoredVariables(std::wstring_view stored);

} // namespace Quorvane::Host
