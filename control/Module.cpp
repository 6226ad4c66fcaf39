// SPDX-License-Identifier: MIT
// The classes of the control's module, for its class factory and its registration.
#include <windows.h>

#include <QuorvaneAxEditor.h>

#include "control/com/Module.h"
#include "shared/Definition.h"

namespace Quorvane::Com {

const ModuleDescription& DescribeModule() noexcept {
    static constexpr ModuleDescription description = {
        .Classes = {},
        .TypeLibrary = &LIBID_QuorvaneAxEditor,
        .MajorVersion = 1,
        .MinorVersion = 0,
        .Locale = 0x409,
        // Unloading would lose the fuzzy system that all controls of the process share.
        .HoldsState = []() noexcept { return Definition::IsHeld(); },
    };
    return description;
}

} // namespace Quorvane::Com
