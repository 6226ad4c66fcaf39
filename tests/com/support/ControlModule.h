// SPDX-License-Identifier: MIT
// Where the tests find the control they were built with.
#pragma once

#include "shared/Text.h"

namespace Quorvane {

/// The full path of the built QuorvaneAxEditor.ocx.
Text ControlModulePath();

/// The folder of the built control, without a backslash at its end.
Text ControlFolder();

} // namespace Quorvane
