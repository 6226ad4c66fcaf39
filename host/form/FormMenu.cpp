// SPDX-License-Identifier: MIT
// FormMenu: the main window's menu bar, its shortcut keys, and the commands that both give.
#include "host/form/FormMenu.h"

#include "host/form/parts/Texts.h"

#include <array>

namespace Quorvane::Host {

HMENU MakeMenuBar() {
    const HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, NewId, GetText(TextId::NewItem));
    AppendMenuW(file, MF_STRING, OpenId, GetText(TextId::OpenItem));
    AppendMenuW(file, MF_STRING, SaveId, GetText(TextId::SaveItem));
    AppendMenuW(file, MF_STRING, SaveAsId, GetText(TextId::SaveAsItem));
    AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, ExitId, GetText(TextId::ExitItem));
    const HMENU form = CreatePopupMenu();
    AppendMenuW(form, MF_STRING, DesignId, GetText(TextId::DesignItem));
    AppendMenuW(form, MF_STRING, RunId, GetText(TextId::RunItem));
    AppendMenuW(form, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(form, MF_STRING, AddId, GetText(TextId::AddItem));
    AppendMenuW(form, MF_STRING, RemoveId, GetText(TextId::RemoveItem));
    AppendMenuW(form, MF_STRING, PropertiesId, GetText(TextId::PropertiesItem));
    const HMENU help = CreatePopupMenu();
    AppendMenuW(help, MF_STRING, AboutId, GetText(TextId::AboutItem));
    const HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), GetText(TextId::FileMenu));
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(form), GetText(TextId::FormMenu));
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(help), GetText(TextId::HelpMenu));
    return bar;
}

Accelerators MakeAccelerators() {
    std::array<ACCEL, 6> keys = {{{FVIRTKEY | FCONTROL, 'N', NewId},
                                  {FVIRTKEY | FCONTROL, 'O', OpenId},
                                  {FVIRTKEY | FCONTROL, 'S', SaveId},
                                  {FVIRTKEY | FSHIFT, VK_F5, DesignId},
                                  {FVIRTKEY, VK_F5, RunId},
                                  {FVIRTKEY, VK_F4, PropertiesId}}};
    return Accelerators(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

} // namespace Quorvane::Host
