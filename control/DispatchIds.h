// SPDX-License-Identifier: MIT
// The dispatch identifiers of the control's own members that the code itself names.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace Quorvane::DispatchIds {

inline constexpr DISPID Inputs = 0x68030007;
inline constexpr DISPID Outputs = 0x68030006;
inline constexpr DISPID Rules = 0x68030005;

/// The event of __FISControl.
inline constexpr DISPID InferComplate = 1;

} // namespace Quorvane::DispatchIds
