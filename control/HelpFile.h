// SPDX-License-Identifier: MIT
// Where the help file of the current language is.
#pragma once

namespace Quorvane {

/// Points the help file of the process to the file of the current language in the help directory
/// that was registered with the type library. Where none is registered it stays as it was.
void SetHelpFile();

} // namespace Quorvane
