// SPDX-License-Identifier: MIT
// FormMenu: the main window's menu bar, its shortcut keys, and the commands that both give.
#pragma once

#include <windows.h>

#include "win/Handle.h"

namespace Quorvane::Host {

/// Far from the small ids of child windows, IDOK and IDCANCEL among them, by which dialog keys
/// report.
enum CommandId {
    NewId = 40001,
    OpenId,
    SaveId,
    SaveAsId,
    ExitId,
    DesignId,
    RunId,
    AddId,
    RemoveId,
    PropertiesId,
    AboutId,
};

/// The menu bar, in the user's language. It belongs to the window that it is given to.
HMENU MakeMenuBar();

/// The shortcut keys that the menus name, but for Insert and Delete, which the form has only while
/// it has the keyboard.
Win::Accelerators MakeAccelerators();

} // namespace Quorvane::Host
