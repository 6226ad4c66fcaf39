// SPDX-License-Identifier: MIT
// The keys of the property page.
#include <algorithm>

#include "editor/windows/PageView.h"
#include "win/Error.h"
#include "win/Keyboard.h"

namespace Quorvane::Editor {

Win::Handle<Win::AcceleratorKind> PageView::MakeAccelerators() {
    ACCEL keys[] = {
        {FVIRTKEY, VK_F2, CmdModifyId},
        {FVIRTKEY, VK_INSERT, CmdAddId},
        {FVIRTKEY, VK_DELETE, CmdDeleteId},
    };
    Win::Handle<Win::AcceleratorKind> table(
        ::CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys))));
    if (!table) {
        Win::ThrowLastError();
    }
    return table;
}

TreeView* PageView::EditedTree() {
    for (TreeView* const tree : {&treInput_, &treOutput_}) {
        if (tree->IsEditing()) {
            return tree;
        }
    }
    return nullptr;
}

/// Enter and Esc end the edit of a label instead of the dialog; all else is for its field.
void PageView::TranslateEditKey(TreeView& edited, const MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN;
    if (isKey && message.wParam == VK_RETURN) {
        EndEdits();
    } else if (isKey && message.wParam == VK_ESCAPE) {
        edited.CancelEdit();
    } else {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// Whether the tab key leaves the page, or is the frame's to change between pages.
bool PageView::LeavesPage(const MSG& tab) const {
    HWND const first = treInput_.Window();
    HWND const last = ::GetNextDlgTabItem(Get(), first, TRUE);
    return Win::IsPressed(VK_CONTROL) || tab.hwnd == (Win::IsPressed(VK_SHIFT) ? first : last);
}

/// Enter presses the button that has the focus. Elsewhere it is the frame's, as Esc is.
bool PageView::TranslateEnter(const MSG& message) {
    const auto buttons = Buttons();
    const auto* const pressed = std::ranges::find(buttons, message.hwnd);
    if (pressed == buttons.end()) {
        return false;
    }
    OnCommand(static_cast<UINT>(::GetDlgCtrlID(*pressed)));
    return true;
}

bool PageView::TranslateKey(MSG& message) {
    const bool isSystemKey = message.message == WM_SYSKEYDOWN || message.message == WM_SYSKEYUP ||
                             message.message == WM_SYSCHAR;
    // Mnemonics are the frame's.
    if (!Get() || !::IsChild(Get(), message.hwnd) || isSystemKey) {
        return false;
    }
    if (TreeView* const edited = EditedTree()) {
        TranslateEditKey(*edited, message);
        return true;
    }
    const bool isInTree = message.hwnd == treInput_.Window() || message.hwnd == treOutput_.Window();
    if (isInTree && ::TranslateAcceleratorW(Get(), accelerators_.Get(), &message)) {
        return true;
    }
    if (message.message == WM_KEYDOWN) {
        switch (message.wParam) {
        case VK_RETURN:
            return TranslateEnter(message);
        case VK_ESCAPE:
            return false;
        case VK_F1:
            return ShowHelp();
        case VK_TAB:
            if (LeavesPage(message)) {
                return false;
            }
            break;
        default:
            break;
        }
    }
    return ::IsDialogMessageW(Get(), &message) != FALSE;
}

} // namespace Quorvane::Editor
