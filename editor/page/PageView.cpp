// SPDX-License-Identifier: MIT
// The windows of the property page over its logic.
#include "editor/page/PageView.h"

#include <algorithm>

#include "control/Resource.h"
#include "control/com/Module.h"
#include "editor/rules/RuleEditorWindow.h"
#include "win/Dpi.h"

namespace Quorvane::Editor {
namespace {

enum ChildId : UINT {
    TreInputId = 100,
    TreOutputId,
    CmdAddId,
    CmdModifyId,
    CmdDeleteId,
    CmdRuleId,
    PicMFId
};

/// The page in dialog units: the size of a page of the platform's property sheets.
constexpr int PageWidth = 252;
constexpr int PageHeight = 218;
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;
constexpr int ButtonCount = 4;
/// The share of the page's height, in percent, that the trees take.
constexpr int TreeShare = 42;

constexpr int IconSide = 16;

} // namespace

void PageView::SideEvents::OnNodeClick(TreeNode& node) {
    view_.page_.NodeClick(side_, node);
    view_.Reflect();
}

bool PageView::SideEvents::OnBeforeLabelEdit(TreeNode& node) {
    return view_.page_.BeforeLabelEdit(side_, node);
}

bool PageView::SideEvents::OnAfterLabelEdit(TreeNode& node, TextView label) {
    const bool accepted = view_.page_.AfterLabelEdit(side_, node, label);
    view_.Reflect();
    return accepted;
}

PageView::PageView(std::function<void()> changed, std::function<std::shared_ptr<void>()> keepAlive)
    : changed_(std::move(changed)), keepAlive_(std::move(keepAlive)),
      visualStyles_(Com::ModuleHandle(), QUORVANE_MANIFEST) {}

PageView::~PageView() {
    Destroy();
}

void PageView::Load(bool readOnly) {
    page_.SelectionChanged(readOnly);
    Reflect();
}

bool PageView::Apply(SelectedControl& control) {
    treInput_.EndEdit();
    treOutput_.EndEdit();
    const bool applied = page_.ApplyChanges(control);
    Reflect();
    return applied;
}

SIZE PageView::NaturalSize() {
    const DialogFont font(Win::DpiOf(static_cast<HWND>(nullptr)));
    return {font.X(PageWidth), font.Y(PageHeight)};
}

void PageView::Create(HWND frame, const RECT& position) {
    const Win::ActivationScope styled(visualStyles_);
    Make<PageView>(Com::ModuleHandle(), {.Parent = frame,
                                         .Position = position,
                                         .Style = WS_CHILD | WS_CLIPCHILDREN,
                                         .ExtendedStyle = WS_EX_CONTROLPARENT,
                                         .Id = 0});
    prompt_.SetOwner(Get());
    MakeControls();
    Arrange();
    Reflect();
}

void PageView::Destroy() noexcept {
    prompt_.SetOwner(nullptr);
    treInput_.Destroy();
    treOutput_.Destroy();
    controls_.reset();
    Window::Destroy();
}

void PageView::Move(const RECT& position) noexcept {
    ::MoveWindow(Get(), position.left, position.top, position.right - position.left,
                 position.bottom - position.top, TRUE);
}

void PageView::Show(UINT command) noexcept {
    ::ShowWindow(Get(), static_cast<int>(command));
    if (command != SW_HIDE) {
        ::SetFocus(treInput_.Window());
    }
}

void PageView::MakeControls() {
    const int dpi = Win::DpiOf(Get());
    Controls& made = controls_.emplace(dpi);
    made.imgIO = MakeTreeImages(::MulDiv(IconSide, dpi, USER_DEFAULT_SCREEN_DPI));
    treInput_.Create(Get(), TreInputId, made.Font, made.imgIO.Get());
    treOutput_.Create(Get(), TreOutputId, made.Font, made.imgIO.Get());
    const auto button = [&](UINT id) {
        return MakeControl(Get(), WC_BUTTONW, {}, WS_TABSTOP | BS_PUSHBUTTON, id, made.Font);
    };
    made.cmdAdd = button(CmdAddId);
    made.cmdModify = button(CmdModifyId);
    made.cmdDelete = button(CmdDeleteId);
    made.cmdRule = button(CmdRuleId);
    made.picMF = std::make_unique<GraphWindow>(
        Get(), PicMFId, made.Font, [this](GraphSurface& surface) { page_.DrawGraph(surface); });
}

void PageView::Arrange() {
    if (!controls_ || !controls_->picMF) {
        return;
    }
    const DialogFont& font = controls_->Font;
    RECT area{};
    ::GetClientRect(Get(), &area);
    const int left = font.X(Margin);
    const int top = font.Y(Margin);
    const int gapX = font.X(Gap);
    const int gapY = font.Y(Gap);
    const int width = std::max(0, static_cast<int>(area.right) - 2 * left);
    const int height = std::max(0, static_cast<int>(area.bottom) - 2 * top);
    const int treeWidth = (width - gapX) / 2;
    const int treeHeight = height * TreeShare / 100;
    const int buttonTop = top + treeHeight + gapY;
    const int buttonHeight = font.Y(ButtonHeight);
    const int buttonWidth = (width - (ButtonCount - 1) * gapX) / ButtonCount;
    const int graphTop = buttonTop + buttonHeight + gapY;

    ::MoveWindow(treInput_.Window(), left, top, treeWidth, treeHeight, TRUE);
    ::MoveWindow(treOutput_.Window(), left + width - treeWidth, top, treeWidth, treeHeight, TRUE);
    int buttonLeft = left;
    for (HWND const button : {controls_->cmdAdd.Get(), controls_->cmdModify.Get(),
                              controls_->cmdDelete.Get(), controls_->cmdRule.Get()}) {
        ::MoveWindow(button, buttonLeft, buttonTop, buttonWidth, buttonHeight, TRUE);
        buttonLeft += buttonWidth + gapX;
    }
    ::MoveWindow(controls_->picMF->Get(), left, graphTop, width,
                 std::max(0, top + height - graphTop), TRUE);
}

void PageView::Reflect() {
    if (controls_ && controls_->picMF) {
        const auto show = [](const Win::ChildWindow& window, const PageButton& button) {
            SetText(window.Get(), button.Caption);
            ::EnableWindow(window.Get(), button.Enabled);
        };
        // A button that is disabled while it has the focus would leave the keyboard nowhere.
        HWND const focus = ::GetFocus();
        const PageButtons& buttons = page_.Buttons();
        show(controls_->cmdAdd, buttons.Add);
        show(controls_->cmdModify, buttons.Modify);
        show(controls_->cmdDelete, buttons.Delete);
        show(controls_->cmdRule, buttons.Rule);
        if (::GetParent(focus) == Get() && !::IsWindowEnabled(focus)) {
            ::SetFocus(treInput_.Window());
        }
        controls_->picMF->Redraw();
    }
    if (page_.Changed()) {
        changed_();
    }
}

LRESULT PageView::OnMessage(UINT message, WPARAM first, LPARAM second) {
    const Win::ActivationScope styled(visualStyles_);
    switch (message) {
    case WM_SIZE:
        Arrange();
        return 0;
    case WM_ERASEBKGND: {
        RECT area{};
        ::GetClientRect(Get(), &area);
        ::FillRect(reinterpret_cast<HDC>(first), &area, ::GetSysColorBrush(COLOR_BTNFACE));
        return TRUE;
    }
    case WM_NOTIFY: {
        auto& header = *reinterpret_cast<NMHDR*>(second);
        if (header.idFrom == TreInputId) {
            return treInput_.OnNotify(header);
        }
        return header.idFrom == TreOutputId ? treOutput_.OnNotify(header) : 0;
    }
    case WM_COMMAND:
        if (HIWORD(first) == BN_CLICKED) {
            OnCommand(LOWORD(first));
        }
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

void PageView::OnCommand(UINT id) {
    // The question before the rule base is emptied lets the frame live on, and the page go.
    const std::shared_ptr<void> alive = keepAlive_();
    switch (id) {
    case CmdAddId:
        page_.Add();
        break;
    case CmdModifyId:
        page_.Modify();
        return;
    case CmdDeleteId:
        page_.Delete();
        break;
    case CmdRuleId:
        OpenRuleEditor();
        break;
    default:
        return;
    }
    Reflect();
}

void PageView::OpenRuleEditor() {
    if (!page_.ReadOnly()) {
        page_.SetChanged(ShowRuleEditor(::GetAncestor(Get(), GA_ROOT), page_.Changed()));
    }
}

TreeView* PageView::EditedTree() {
    for (TreeView* const tree : {&treInput_, &treOutput_}) {
        if (tree->IsEditing()) {
            return tree;
        }
    }
    return nullptr;
}

bool PageView::TranslateTreeKey(const MSG& message) {
    const bool inTree = message.hwnd == treInput_.Window() || message.hwnd == treOutput_.Window();
    if (!inTree || message.message != WM_KEYDOWN) {
        return false;
    }
    switch (message.wParam) {
    case VK_F2:
        OnCommand(CmdModifyId);
        return true;
    case VK_INSERT:
        OnCommand(CmdAddId);
        return true;
    case VK_DELETE:
        OnCommand(CmdDeleteId);
        return true;
    default:
        return false;
    }
}

bool PageView::TranslateKey(MSG& message) {
    if (!Get() || !::IsChild(Get(), message.hwnd)) {
        return false;
    }
    // Enter and Esc end the edit of a label instead of the dialog.
    if (TreeView* const edited = EditedTree()) {
        if (message.message == WM_KEYDOWN &&
            (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE)) {
            message.wParam == VK_RETURN ? (void)edited->EndEdit() : edited->CancelEdit();
            return true;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
        return true;
    }
    if (TranslateTreeKey(message)) {
        return true;
    }
    // Mnemonics of the frame, and the tab key where it leaves the page, are the frame's.
    if (message.message == WM_SYSCHAR || message.message == WM_SYSKEYDOWN) {
        return false;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB) {
        const BOOL back = ::GetKeyState(VK_SHIFT) < 0;
        HWND const edge =
            back ? treInput_.Window() : ::GetNextDlgTabItem(Get(), treInput_.Window(), TRUE);
        if (message.hwnd == edge) {
            return false;
        }
    }
    const bool isNavigation = message.message == WM_KEYDOWN &&
                              (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
    return !isNavigation && ::IsDialogMessageW(Get(), &message);
}

} // namespace Quorvane::Editor
