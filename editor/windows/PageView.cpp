// SPDX-License-Identifier: MIT
// The windows of the property page over its logic.
#include "editor/windows/PageView.h"

#include <utility>

#include "com/Module.h"
#include "editor/windows/Failure.h"
#include "editor/windows/RuleEditorWindow.h"
#include "editor/windows/TreeImages.h"
#include "shared/Definition.h"
#include "win/Dpi.h"
#include "win/HelpViewer.h"
#include "win/MemoryBitmap.h"
#include "win/WindowText.h"

namespace Quorvane::Editor {
namespace {

constexpr int IconSide = 16;

/// The button that has the focus is the one that Enter presses. Not every platform takes the mark
/// off it when the focus leaves the page.
void ShowDefault(HWND button, bool isDefault) {
    ::SendMessageW(button, BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

/// Shows what was refused, after the tree has ended its edit.
constexpr UINT ShowRefusalMessage = WM_APP + 1;

} // namespace

void PageView::SideEvents::OnNodeClick(TreeNode& node) {
    view_.Act([&] { view_.page_.NodeClick(side_, node); });
}

void PageView::SideEvents::OnFocus() {
    if (!view_.page_.WaitsForClick()) {
        view_.Act([&] { view_.page_.EnterTree(side_); });
    }
}

Text PageView::SideEvents::OnTip(TreeNode& node) {
    return view_.page_.TipOf(side_, node);
}

void PageView::SideEvents::OnMoveKey() {
    view_.Act([&] { view_.page_.EnterTree(side_); });
}

bool PageView::SideEvents::OnBeforeLabelEdit(TreeNode& node) {
    return view_.page_.BeforeLabelEdit(side_, node);
}

bool PageView::SideEvents::OnAfterLabelEdit(TreeNode& node, TextView label) {
    bool isAccepted = false;
    view_.prompt_.Keep(
        [&] { view_.Act([&] { isAccepted = view_.page_.AfterLabelEdit(side_, node, label); }); });
    ::PostMessageW(view_.Get(), ShowRefusalMessage, 0, 0);
    return isAccepted;
}

PageView::PageView(std::function<void()> changed, std::function<std::shared_ptr<void>()> keepAlive)
    : changed_(std::move(changed)), keepAlive_(std::move(keepAlive)),
      visualStyles_(Com::ModuleHandle()), accelerators_(MakeAccelerators()) {}

PageView::~PageView() {
    Destroy();
}

template <class Action>
void PageView::Act(Action&& action) noexcept {
    Attempt(prompt_, std::forward<Action>(action));
    Attempt(prompt_, [this] { Reflect(); });
}

void PageView::Load(bool readOnly) {
    try {
        page_.SelectionChanged(readOnly);
    } catch (...) {
        Reflect();
        throw;
    }
    Reflect();
}

bool PageView::Apply(SelectedControl& control) {
    // What was refused is the user's to correct before anything is applied.
    const bool isApplied = EndEdits() && page_.ApplyChanges(control);
    Reflect();
    return isApplied;
}

/// False where an edit was refused, also one that the user has not been told of yet.
bool PageView::EndEdits() {
    const bool isAccepted = treInput_.EndEdit() && treOutput_.EndEdit();
    return !prompt_.ShowKept() && isAccepted;
}

SIZE PageView::NaturalSize() const {
    const DialogFont font(Win::DpiOf(Get() ? Get() : ::GetActiveWindow()));
    const PageSize size = PageLayout::NaturalSize(font.Units());
    return {size.Width, size.Height};
}

/// The part of a place that is within the frame: some frames give a page more room than they have,
/// and what lies beyond is not to be seen. A frame that has no area yet, or that scrolls the page,
/// has its way.
RECT PageView::InFrame(HWND frame, const RECT& position) noexcept {
    RECT area{};
    RECT place{};
    ::GetClientRect(frame, &area);
    const bool startsInside = ::PtInRect(&area, {position.left, position.top}) != FALSE;
    return startsInside && ::IntersectRect(&place, &area, &position) ? place : position;
}

void PageView::Create(HWND frame, const RECT& position) {
    const Win::ActivationScope styled(visualStyles_);
    Make<PageView>(Com::ModuleHandle(), {.Parent = frame,
                                         .Position = InFrame(frame, position),
                                         .Style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                                         .ExtendedStyle = WS_EX_CONTROLPARENT,
                                         .Id = 0});
    given_ = position;
    FollowFrame(frame);
    prompt_.SetOwner(Get());
    MakeControls();
    Arrange();
    ShowNodes();
    Reflect();
}

/// Trees that are made anew show their roots selected; the buttons and the graph are for the nodes
/// that the logic has.
void PageView::ShowNodes() {
    for (const Side side : {Side::Input, Side::Output}) {
        tree(side).ShowNodes();
        if (const TreeNode* const selected = page_.Selected(side)) {
            tree(side).Select(*selected);
        }
    }
}

void PageView::Destroy() noexcept {
    frame_.reset();
    prompt_.SetOwner(nullptr);
    treInput_.Destroy();
    treOutput_.Destroy();
    controls_.reset();
    Window::Destroy();
}

void PageView::Move(const RECT& position) noexcept {
    given_ = position;
    FitIntoFrame();
}

void PageView::FitIntoFrame() noexcept {
    const RECT place = InFrame(::GetParent(Get()), given_);
    ::MoveWindow(Get(), place.left, place.top, place.right - place.left, place.bottom - place.top,
                 TRUE);
}

/// Some frames are made as small as they are to be only after they have activated their pages.
void PageView::FollowFrame(HWND frame) {
    frame_.emplace(frame, [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SIZE) {
            FitIntoFrame();
        }
        return std::nullopt;
    });
}

void PageView::Show(UINT command) noexcept {
    if (command == SW_HIDE) {
        // The page of another tab takes over; the entry is not lost with the focus.
        EndEdits();
    }
    ::ShowWindow(Get(), static_cast<int>(command));
    if (command != SW_HIDE) {
        ::SetFocus(treInput_.Window());
    }
}

void PageView::ShowFailure() noexcept {
    Editor::ShowFailure(prompt_);
}

PageView::Controls::Controls(int dpi)
    : Font(dpi), imgIO(MakeTreeImages(::MulDiv(IconSide, dpi, USER_DEFAULT_SCREEN_DPI))) {}

void PageView::MakeControls() {
    Controls& made = controls_.emplace(Win::DpiOf(Get()));
    treInput_.Create(Get(), TreInputId, made.Font, made.imgIO.Get());
    treOutput_.Create(Get(), TreOutputId, made.Font, made.imgIO.Get());
    const auto button = [&](UINT id) {
        return MakeControl(Get(), WC_BUTTONW, {}, WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY, id,
                           made.Font);
    };
    made.cmdAdd = button(CmdAddId);
    made.cmdModify = button(CmdModifyId);
    made.cmdDelete = button(CmdDeleteId);
    made.cmdRule = button(CmdRuleId);
    made.picMF = std::make_unique<GraphWindow>(
        Get(), PicMFId, made.Font, [this](GraphSurface& surface) { page_.DrawGraph(surface); });
}

/// Scales what there is, so that neither focus nor an open edit is lost.
void PageView::UseDpi() {
    if (!controls_ || !controls_->picMF) {
        return;
    }
    const int dpi = Win::DpiOf(Get());
    Controls scaled(dpi);
    // The former font and images go once nothing shows them any more.
    std::swap(controls_->Font, scaled.Font);
    std::swap(controls_->imgIO, scaled.imgIO);
    ShowFont(Get(), controls_->Font);
    treInput_.ShowImages(controls_->imgIO.Get());
    treOutput_.ShowImages(controls_->imgIO.Get());
    Arrange();
    controls_->picMF->Redraw();
}

std::array<HWND, PageLayout::ButtonCount> PageView::Buttons() const {
    return {controls_->cmdAdd.Get(), controls_->cmdModify.Get(), controls_->cmdDelete.Get(),
            controls_->cmdRule.Get()};
}

void PageView::Arrange() {
    if (!controls_ || !controls_->picMF) {
        return;
    }
    const auto place = [](HWND window, const Area& area) {
        ::MoveWindow(window, area.Left, area.Top, area.Width, area.Height, TRUE);
    };
    RECT page{};
    ::GetClientRect(Get(), &page);
    const PageLayout layout =
        PageLayout::For({static_cast<int>(page.right), static_cast<int>(page.bottom)},
                        {.Units = controls_->Font.Units(),
                         .TreeLine = TreeView_GetItemHeight(treInput_.Window()),
                         .Edges = 2 * ::GetSystemMetrics(SM_CYEDGE)});
    place(treInput_.Window(), layout.TreInput);
    place(treOutput_.Window(), layout.TreOutput);
    for (std::size_t i = 0; i < PageLayout::ButtonCount; ++i) {
        place(Buttons()[i], layout.Buttons[i]);
    }
    place(controls_->picMF->Get(), layout.PicMF);
}

void PageView::Reflect() {
    if (controls_ && controls_->picMF) {
        const auto show = [](const Win::ChildWindow& window, const PageButton& button) {
            Win::ShowText(window.Get(), button.Caption);
            Win::Enable(window.Get(), button.Enabled);
        };
        // A button that is disabled while it has the focus would leave the keyboard nowhere.
        HWND const focus = ::GetFocus();
        const PageButtons& buttons = page_.Buttons();
        show(controls_->cmdAdd, buttons.Add);
        show(controls_->cmdModify, buttons.Modify);
        show(controls_->cmdDelete, buttons.Delete);
        show(controls_->cmdRule, buttons.Rule);
        if (::GetParent(focus) == Get() && !::IsWindowEnabled(focus)) {
            ::SetFocus(tree(page_.CurrentTree()).Window());
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
    case ShowRefusalMessage: {
        // The message lets the frame live on, and the page go.
        const std::shared_ptr<void> alive = keepAlive_();
        prompt_.ShowKept();
        return 0;
    }
    case Win::DpiChangedAfterParent:
        UseDpi();
        return 0;
    case WM_ERASEBKGND:
        Win::FillBackground(Get(), reinterpret_cast<HDC>(first));
        return TRUE;
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<NMHDR*>(second));
    case WM_COMMAND:
        switch (HIWORD(first)) {
        case BN_SETFOCUS:
        case BN_KILLFOCUS:
            ShowDefault(reinterpret_cast<HWND>(second), HIWORD(first) == BN_SETFOCUS);
            break;
        case BN_CLICKED:
        case FromAccelerator:
            OnCommand(LOWORD(first));
            break;
        default:
            break;
        }
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

LRESULT PageView::OnNotify(NMHDR& header) {
    // What the frame is told of an edit may be the end of the page.
    const std::shared_ptr<void> alive = keepAlive_();
    if (header.idFrom == TreInputId) {
        return treInput_.OnNotify(header);
    }
    return header.idFrom == TreOutputId ? treOutput_.OnNotify(header) : 0;
}

void PageView::OnCommand(UINT id) {
    // So do the question before the rule base is emptied, and the rule editor.
    const std::shared_ptr<void> alive = keepAlive_();
    switch (id) {
    case CmdAddId:
        Act([this] { page_.Add(); });
        break;
    case CmdModifyId:
        Attempt(prompt_, [this] { page_.Modify(); });
        break;
    case CmdDeleteId:
        Act([this] { page_.Delete(); });
        break;
    case CmdRuleId:
        Act([this] { OpenRuleEditor(); });
        break;
    default:
        break;
    }
}

void PageView::OpenRuleEditor() {
    if (!page_.ReadOnly()) {
        page_.SetChanged(ShowRuleEditor(::GetAncestor(Get(), GA_ROOT), page_.Changed()));
    }
}

bool PageView::ShowHelp() const noexcept {
    return Win::ShowHelpFile(::GetAncestor(Get(), GA_ROOT), Definition::State().HelpFile);
}

} // namespace Quorvane::Editor
