// SPDX-License-Identifier: MIT
// The text conversions of Windows for the core: ANSI code page and user's locale.
#pragma once

#include "shared/TextServices.h"

namespace Quorvane {

/// The services of this platform; they live as long as the process.
const TextServices& WindowsTextServices() noexcept;

} // namespace Quorvane
