// SPDX-License-Identifier: MIT
// FormMenu: the main window's menu bar, its shortcut keys, and the commands that both give.
#include "host/form/FormMenu.h"

#include <array>

#include "host/form/parts/Texts.h"
#include "win/WideText.h"

namespace Quorvane::Host {

HMENU MakeMenuBar() {
    const HMENU file = ::CreatePopupMenu();
    ::AppendMenuW(file, MF_STRING, NewId, Win::Wide(GetText(TextId::NewItem)));
    ::AppendMenuW(file, MF_STRING, OpenId, Win::Wide(GetText(TextId::OpenItem)));
    ::AppendMenuW(file, MF_STRING, SaveId, Win::Wide(GetText(TextId::SaveItem)));
    ::AppendMenuW(file, MF_STRING, SaveAsId, Win::Wide(GetText(TextId::SaveAsItem)));
    ::AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(file, MF_STRING, ExitId, Win::Wide(GetText(TextId::ExitItem)));
    const HMENU form = ::CreatePopupMenu();
    ::AppendMenuW(form, MF_STRING, DesignId, Win::Wide(GetText(TextId::DesignItem)));
    ::AppendMenuW(form, MF_STRING, RunId, Win::Wide(GetText(TextId::RunItem)));
    ::AppendMenuW(form, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(form, MF_STRING, AddId, Win::Wide(GetText(TextId::AddItem)));
    ::AppendMenuW(form, MF_STRING, RemoveId, Win::Wide(GetText(TextId::RemoveItem)));
    ::AppendMenuW(form, MF_STRING, PropertiesId, Win::Wide(GetText(TextId::PropertiesItem)));
    const HMENU help = ::CreatePopupMenu();
    ::AppendMenuW(help, MF_STRING, AboutId, Win::Wide(GetText(TextId::AboutItem)));
    const HMENU bar = ::CreateMenu();
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file),
                  Win::Wide(GetText(TextId::FileMenu)));
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(form),
                  Win::Wide(GetText(TextId::FormMenu)));
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(help),
                  Win::Wide(GetText(TextId::HelpMenu)));
    return bar;
}

Win::Accelerators MakeAccelerators() {
    std::array<ACCEL, 6> keys = {{{FVIRTKEY | FCONTROL, 'N', NewId},
                                  {FVIRTKEY | FCONTROL, 'O', OpenId},
                                  {FVIRTKEY | FCONTROL, 'S', SaveId},
                                  {FVIRTKEY | FSHIFT, VK_F5, DesignId},
                                  {FVIRTKEY, VK_F5, RunId},
                                  {FVIRTKEY, VK_F4, PropertiesId}}};
    return Win::Accelerators(::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

} // namespace Quorvane::Host
