// SPDX-License-Identifier: MIT
// What a failed cycle leaves in the outputs.
#pragma once

namespace Quorvane::RunTime {

/// Sets every output to its error value, or to its default where no error values are set. An
/// output that the source lacks becomes Empty; keys of a host that are no texts stay as they are.
/// What fails ends it; nothing is raised.
void ApplyErrorOutputs() noexcept;

} // namespace Quorvane::RunTime
