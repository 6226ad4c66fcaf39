// SPDX-License-Identifier: MIT
// Working in the control's property page and rule editor, inside the form program's frame.
#include "tests/form/driving/PageHands.h"

#include "tests/form/driving/Hands.h"
#include "tests/form/driving/Ids.h"
#include "tests/form/driving/Wait.h"

#include <array>

namespace Quorvane::Driving {

namespace {

HTREEITEM Existing(HWND tree, const Path& path) {
    HTREEITEM const item = TreeItem(tree, path);
    if (!item) {
        throw DriveError("the tree has no such node");
    }
    return item;
}

int NodeCount(HWND tree) {
    return static_cast<int>(TreeView_GetCount(tree));
}

std::wstring ListItem(HWND list, int index) {
    std::array<wchar_t, 64> text{};
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

int IndexOf(HWND list, const std::wstring& text) {
    const auto count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    for (int index = 0; index < count; ++index) {
        if (ListItem(list, index) == text) {
            return index;
        }
    }
    throw DriveError("the list box has no such term");
}

} // namespace

PageHands::PageHands(const FormProgram& program, HWND frame)
    : program_(program), frame_(frame), page_(ChildOfClass(frame, WindowClass::Page)) {}

void PageHands::SelectItem(int tree, HTREEITEM item) const {
    HWND const window = Tree(tree);
    const auto isSelected = [&] {
        return TreeView_GetSelection(window) == item && FocusOf(window) == window;
    };
    // A second click on a node begins to edit its label after a while; not on the root, though,
    // where a click tells the page that the user is there.
    if (!isSelected() || item == TreeView_GetRoot(window)) {
        Click(window, ItemPoint(window, item));
        if (!WaitFor(isSelected, 1500)) {
            Click(window, ItemPoint(window, item));
        }
        Expect("a node is selected", isSelected);
    }
}

void PageHands::Select(int tree, const Path& path) const {
    SelectItem(tree, Existing(Tree(tree), path));
}

void PageHands::BeginEdit(int tree, HTREEITEM item, const std::wstring& text) const {
    HWND const window = Tree(tree);
    SelectItem(tree, item);
    Press(VK_F2);
    HWND field = nullptr;
    Expect("a label is edited", [&] {
        field = TreeView_GetEditControl(window);
        return field && FocusOf(window) == field;
    });
    Type(text);
    Expect("a label is typed", [&] { return TextOf(field) == text; });
}

void PageHands::EditItem(int tree, HTREEITEM item, const std::wstring& text) const {
    HWND const window = Tree(tree);
    BeginEdit(tree, item, text);
    Press(VK_RETURN);
    Expect("a node has its new label",
           [&] { return !TreeView_GetEditControl(window) && ItemText(window, item) == text; });
}

void PageHands::Edit(int tree, const Path& path, const std::wstring& text) const {
    EditItem(tree, Existing(Tree(tree), path), text);
}

void PageHands::EditChild(int tree, const Path& parent, int index, const std::wstring& text) const {
    HWND const window = Tree(tree);
    HTREEITEM item = TreeView_GetChild(window, Existing(window, parent));
    for (; item && index > 0; --index) {
        item = TreeView_GetNextSibling(window, item);
    }
    EditItem(tree, item, text);
}

void PageHands::PressAndConfirm(int tree, WORD key) const {
    HWND const window = Tree(tree);
    const int count = NodeCount(window);
    bool isAsked = false;
    const auto changes = [&] {
        const auto questions = TopWindows(program_.ProcessId(), WindowClass::Dialog);
        if (!questions.empty()) {
            isAsked = true;
            PostMessageW(questions.front(), WM_COMMAND, IDYES, 0);
        }
        return NodeCount(window) != count;
    };
    Press(key);
    // A key that comes while the frame is getting the keyboard back is lost; a person tries again.
    if (!WaitFor(changes, 3000) && !isAsked) {
        Activate(frame_);
        Press(key);
    }
    Expect("the tree changes", changes);
    Activate(frame_);
}

void PageHands::Add(int tree, const Path& path) const {
    Select(tree, path);
    PressAndConfirm(tree, VK_INSERT);
}

void PageHands::Delete(int tree, const Path& path) const {
    Select(tree, path);
    PressAndConfirm(tree, VK_DELETE);
}

HWND PageHands::OpenRuleEditor() const {
    Click(Button(Id::CmdRule));
    return program_.Dialog(WindowClass::RuleEditor);
}

void RuleEditorHands::Choose(int panel, int variable, const std::wstring& term) const {
    HWND const content = GetWindow(Child(editor_, panel), GW_CHILD);
    HWND const list = Child(content, Id::FirstTermList + variable);
    FocusByClick(list);
    const int wanted = IndexOf(list, term);
    Press(VK_HOME);
    for (int i = 0; i < wanted; ++i) {
        Press(VK_DOWN);
    }
    Expect("a term is chosen",
           [&] { return static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0)) == wanted; });
}

void RuleEditorHands::ChooseInput(int variable, const std::wstring& term) const {
    Choose(Id::PicInput, variable, term);
}

void RuleEditorHands::ChooseOutput(int variable, const std::wstring& term) const {
    Choose(Id::PicOutput, variable, term);
}

void RuleEditorHands::Add(const std::wstring& weight, int rulesThen) const {
    HWND const field = Child(editor_, Id::TxtWeight);
    program_.SetField(field, weight);
    Press(VK_RETURN);
    Expect("the rule is in the list", [&] { return RowCount(Rules()) == rulesThen; });
}

void RuleEditorHands::Close() const {
    Press(VK_ESCAPE);
    Expect("the rule editor closes", [this] { return !IsWindow(editor_); });
}

} // namespace Quorvane::Driving
