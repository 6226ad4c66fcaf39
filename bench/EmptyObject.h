// SPDX-License-Identifier: MIT
// The least that a late-bound call can do: what calls of the control are compared with.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "com/ComPtr.h"

namespace Quorvane::Bench {

/// A new object with one method of the id 1, which takes nothing and does nothing. The platform
/// carries out its calls, from type information that the platform keeps as well.
Com::ComPtr<IDispatch> NewEmptyObject();

} // namespace Quorvane::Bench
