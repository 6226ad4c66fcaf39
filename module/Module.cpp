// SPDX-License-Identifier: MIT
// The classes of the control's module, for its class factory and its registration.
#include <windows.h>

#include "com/Module.h"
#include "com/WindowsTextServices.h"
#include "control/FISControl.h"
#include "editor/windows/FIS_IO.h"
#include "idl/QuorvaneAxEditor.h"
#include "module/Resource.h"
#include "shared/Definition.h"
#include "shared/TextServices.h"

namespace Quorvane {
namespace {

/// From the loading of the module on, the core converts texts as Windows and the user do.
[[maybe_unused]] const TextServices& formerText = InstallPlatformText(WindowsTextServices());

/// What the registry says of the control. It is safe to load untrusted data into it, as hostile
/// texts and bags are; it is never safe for untrusted callers, as BatchData writes files.
constexpr GUID ControlCategories[] = {
    // CATID_Control and CATID_SafeForInitializing, which the platform declares as variables only.
    {0x40fc6ed4, 0x2438, 0x11cf, {0xa3, 0xdb, 0x08, 0x00, 0x36, 0xf1, 0x25, 0x02}},
    {0x7dd95802, 0x9882, 0x11cf, {0x9f, 0xa9, 0x00, 0xaa, 0x00, 0x6c, 0x42, 0xc4}},
};

constexpr Com::ClassEntry Classes[] = {
    {.Clsid = &CLSID_FISControl,
     .Create = Com::CreateInstance<FISControl>,
     .Registration = {.Title = FISControl::Title,
                      .ProgId = u"QuorvaneAxEditor.FISControl",
                      .ProgIdVersion = u"1",
                      .IsControl = true,
                      .MiscStatus = FISControl::MiscStatus,
                      .ToolboxBitmap = QUORVANE_TOOLBOX_BITMAP,
                      .Categories = ControlCategories}},
    {.Clsid = &CLSID_FIS_IO,
     .Create = Com::CreateInstance<Editor::FIS_IO>,
     .Registration = {.Title = u"Quorvane fuzzy system property page",
                      .ProgId = {},
                      .ProgIdVersion = {},
                      .IsControl = false,
                      .MiscStatus = 0,
                      .ToolboxBitmap = 0,
                      .Categories = {}}},
};

} // namespace
} // namespace Quorvane

namespace Quorvane::Com {

const ModuleDescription& DescribeModule() noexcept {
    static constexpr ModuleDescription description = {
        .Classes = Classes,
        .TypeLibrary = &LIBID_QuorvaneAxEditor,
        .MajorVersion = 1,
        .MinorVersion = 0,
        .Locale = 0x409,
        // Unloading would lose the fuzzy system that all controls of the process share.
        .HoldsState = []() noexcept { return Definition::IsHeld(); },
        .GiveUpState = Definition::GiveUp,
    };
    return description;
}

} // namespace Quorvane::Com
