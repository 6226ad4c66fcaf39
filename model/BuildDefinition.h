// SPDX-License-Identifier: MIT
// From the model to the stored definition texts.
#pragma once

namespace Quorvane::Main {

/// Writes the three definition texts of the process from the model, in the grammar that
/// ParseDefinition reads. A variable without terms is written without its fourth field, and a text
/// with such a variable does not parse. Raises ObjectNotSet where there is no model.
void BuildDefinition();

} // namespace Quorvane::Main
