// SPDX-License-Identifier: MIT
// `frmRuleEditor`: the window in which rules are designed.
#include "editor/windows/RuleEditorWindow.h"

#include <optional>
#include <utility>

#include "com/Module.h"
#include "editor/windows/Failure.h"
#include "editor/windows/MessagePrompt.h"
#include "editor/windows/RuleEditorParts.h"
#include "win/ActivationContext.h"
#include "win/Dpi.h"
#include "win/MemoryBitmap.h"
#include "win/ModalScope.h"
#include "win/Raised.h"
#include "win/WindowText.h"
#include "win/WorkArea.h"

namespace Quorvane::Editor {
namespace {

/// The weight is checked after the focus has moved on, when a message box may appear.
constexpr UINT ValidateWeightMessage = WM_APP + 1;

/// Whether a row is still selected is seen once the list has given the selection to another one.
constexpr UINT CheckSelectionMessage = WM_APP + 2;

/// The message loop looks at its end after each message that it is given. One that was sent, as
/// from another thread, is handled without being given.
void WakeLoop() noexcept {
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

class RuleEditorWindow final : public Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneRuleEditor";

    RuleEditorWindow(HWND owner, bool changed);
    ~RuleEditorWindow() override;

    /// Runs until the window is closed or destroyed.
    void Run();

    bool Changed() const { return editor_.Changed(); }

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void TakeOwnersIcon() const;
    void TakeRoom() const;

    template <class Action>
    void Act(Action&& action) noexcept;

    void Reflect();
    void OnCommand(UINT id, UINT code);
    void OnWeightChanged();
    void OnWeightLeft() const;
    void OnRowClicked(std::size_t row);
    void ValidateWeight();
    void Close();
    void OnDpiChanged(int dpi, const RECT& place);
    void Add();
    void Delete();
    void OnActivate(bool isActive);

    HWND owner_;
    MessagePrompt prompt_;
    RuleEditor editor_;
    /// None until they are all made. They outlive a window that its owner's end destroys.
    std::optional<RuleEditorParts> parts_;
    /// Whether what the controls report now comes from the editor and not from the user.
    bool isShowing_ = false;
    bool isClosed_ = false;
    /// The row that waits for the weight to be validated.
    std::optional<std::size_t> clickedRow_;
    /// What has the keyboard when the window becomes active again.
    HWND focus_ = nullptr;
};

RuleEditorWindow::RuleEditorWindow(HWND owner, bool changed)
    : owner_(owner), editor_(prompt_, changed) {
    const DialogFont font(Win::DpiOf(owner));
    const SIZE size = RuleEditorParts::UsualSize(font);
    RECT around{};
    ::GetWindowRect(owner, &around);
    Make<RuleEditorWindow>(
        Com::ModuleHandle(),
        {.Parent = owner_,
         .Position = {around.left, around.top, around.left + size.cx, around.top + size.cy},
         .Style =
             WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN,
         .ExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT,
         .Id = 0});
    prompt_.SetOwner(Get());
    Win::ShowText(Get(), CurrentRuleEditorCaptions().RuleBase);
    TakeOwnersIcon();
    parts_.emplace(
        Get(), editor_,
        RuleListView::Events{
            .RowClicked = [this](std::size_t row) { OnRowClicked(row); },
            .SelectionLeft = [this] { ::PostMessageW(Get(), CheckSelectionMessage, 0, 0); },
            .HeaderClicked = [this](std::size_t column) { Act([&] { editor_.SortBy(column); }); },
            .OrderChosen = [this](RuleOrder order) { Act([&] { editor_.Sort(order); }); },
            .DeletePressed = [this] { Delete(); },
        });
    TakeRoom();
    parts_->Arrange();
    Reflect();
}

RuleEditorWindow::~RuleEditorWindow() {
    const Win::Raised ending(isShowing_);
    parts_.reset();
    Destroy();
}

/// The editor belongs to the program that shows it.
void RuleEditorWindow::TakeOwnersIcon() const {
    HWND const top = ::GetAncestor(owner_, GA_ROOTOWNER);
    const auto fromClass = static_cast<LPARAM>(::GetClassLongPtrW(top, GCLP_HICONSM));
    const LRESULT given = ::SendMessageW(top, WM_GETICON, ICON_SMALL, 0);
    ::SendMessageW(Get(), WM_SETICON, ICON_SMALL, given != 0 ? given : fromClass);
}

/// Makes the window wide enough for all columns, as far as the screen has the room.
void RuleEditorWindow::TakeRoom() const {
    const int step = ::GetSystemMetrics(SM_CYCAPTION) + ::GetSystemMetrics(SM_CYSIZEFRAME);
    RECT around{};
    ::GetWindowRect(owner_, &around);
    const SIZE size = parts_->NaturalSize();
    RECT place{0, 0, size.cx, size.cy};
    ::AdjustWindowRectEx(&place, static_cast<DWORD>(::GetWindowLongW(Get(), GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(Get(), GWL_EXSTYLE)));
    // Below the owner's title, which says what the rules are of.
    ::OffsetRect(&place, around.left + step - place.left, around.top + step - place.top);
    place = Win::WithinWorkArea(place);
    ::SetWindowPos(Get(), nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Does what the user has asked of the editor, then shows the outcome. Errors are shown.
template <class Action>
void RuleEditorWindow::Act(Action&& action) noexcept {
    Attempt(prompt_, std::forward<Action>(action));
    Attempt(prompt_, [this] { Reflect(); });
}

void RuleEditorWindow::Reflect() {
    const Win::Raised showing(isShowing_);
    parts_->Reflect();
}

void RuleEditorWindow::Add() {
    ::SetFocus(parts_->TxtWeight());
    Act([this] { editor_.Add(); });
    parts_->GoToWeight();
}

void RuleEditorWindow::Delete() {
    Act([this] { editor_.Delete(); });
}

void RuleEditorWindow::OnWeightChanged() {
    if (!isShowing_) {
        Attempt(prompt_, [this] { editor_.EditWeight(Win::TextOf(parts_->TxtWeight())); });
        parts_->ReflectButtons();
    }
}

void RuleEditorWindow::OnWeightLeft() const {
    ::PostMessageW(Get(), ValidateWeightMessage, 0, 0);
}

/// A row takes the place of what has been typed only where that is accepted.
void RuleEditorWindow::OnRowClicked(std::size_t row) {
    if (editor_.HasTypedWeight()) {
        clickedRow_ = row;
        OnWeightLeft();
    } else {
        Act([&] { editor_.SelectRow(row); });
    }
}

void RuleEditorWindow::ValidateWeight() {
    const auto row = std::exchange(clickedRow_, std::nullopt);
    HWND const focus = ::GetFocus();
    // While the mouse presses a button, the button is not done: one validates the weight itself,
    // the other closes the window. Where neither comes to it, leaving the button validates.
    const bool isPressed =
        focus == ::GetCapture() && (focus == parts_->CmdAdd() || focus == parts_->CmdClose());
    const bool isLeft = focus != parts_->TxtWeight() && ::IsChild(Get(), focus) && !isPressed;
    if (isClosed_ || (!isLeft && !row)) {
        return;
    }
    bool isAccepted = false;
    Attempt(prompt_, [&] { isAccepted = editor_.LeaveWeight(); });
    if (isAccepted && row && *row < editor_.Rows().Count()) {
        Act([&] { editor_.SelectRow(*row); });
        return;
    }
    // Nothing else is shown anew: a list box may be under the pressed mouse.
    const Win::Raised showing(isShowing_);
    if (isAccepted) {
        parts_->ReflectWeight();
    } else {
        parts_->LvwRule().Reflect();
        parts_->GoToWeight();
    }
}

void RuleEditorWindow::OnCommand(UINT id, UINT code) {
    if (code == BN_KILLFOCUS && (id == RuleEditorParts::CmdAddId || id == IDCANCEL)) {
        OnWeightLeft();
    } else if (id == RuleEditorParts::TxtWeightId && code == EN_KILLFOCUS) {
        OnWeightLeft();
    } else if (id == RuleEditorParts::TxtWeightId && code == EN_CHANGE) {
        OnWeightChanged();
    } else if (code == BN_CLICKED) {
        switch (id) {
        case IDOK: // Enter, in whatever field
        case RuleEditorParts::CmdAddId:
            Add();
            break;
        case RuleEditorParts::CmdDeleteId:
            Delete();
            break;
        case RuleEditorParts::CmdCloseId: // and Esc
            Close();
            break;
        default:
            break;
        }
    }
}

void RuleEditorWindow::Close() {
    isClosed_ = true;
    WakeLoop();
}

void RuleEditorWindow::OnDpiChanged(int dpi, const RECT& place) {
    parts_->UseDpi(dpi);
    ::SetWindowPos(Get(), nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    // Also where the place is the same.
    parts_->Arrange();
}

/// As dialogs do it: a message box gives the keyboard back to the field that it interrupted.
void RuleEditorWindow::OnActivate(bool isActive) {
    HWND const focus = ::GetFocus();
    if (!isActive && ::IsChild(Get(), focus)) {
        focus_ = focus;
    } else if (isActive) {
        const bool isUsable = ::IsChild(Get(), focus_) && ::IsWindowEnabled(focus_);
        ::SetFocus(isUsable ? focus_ : parts_->LvwRule().Window());
    }
}

LRESULT RuleEditorWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    if (!parts_) {
        return Window::OnMessage(message, first, second);
    }
    switch (message) {
    case WM_SIZE:
        parts_->Arrange();
        return 0;
    case Win::DpiChanged:
        OnDpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
        return 0;
    case WM_GETMINMAXINFO: {
        const SIZE smallest = parts_->SmallestSize();
        reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {smallest.cx, smallest.cy};
        return 0;
    }
    case WM_ACTIVATE:
        OnActivate(LOWORD(first) != WA_INACTIVE);
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(first), HIWORD(first));
        return 0;
    case WM_NOTIFY: {
        auto& header = *reinterpret_cast<NMHDR*>(second);
        const bool isList = header.idFrom == RuleEditorParts::LvwRuleId;
        return isList ? parts_->LvwRule().OnNotify(header) : 0;
    }
    case ValidateWeightMessage:
        ValidateWeight();
        return 0;
    case CheckSelectionMessage:
        if (!parts_->LvwRule().HasSelection()) {
            editor_.ClearSelection();
        }
        return 0;
    case WM_ERASEBKGND:
        Win::FillBackground(Get(), reinterpret_cast<HDC>(first));
        return TRUE;
    case DM_GETDEFID:
        return MAKELRESULT(RuleEditorParts::CmdAddId, DC_HASDEFID);
    case WM_CLOSE:
        Close();
        return 0;
    case WM_DESTROY:
        WakeLoop();
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

void RuleEditorWindow::Run() {
    // Rules are edited in one place at a time, whatever windows the host has.
    const Win::ModalScope modal(Get());
    focus_ = parts_->LvwRule().Window();
    ::ShowWindow(Get(), SW_SHOW);
    MSG message{};
    // The window goes with its owner when a host destroys its frame meanwhile.
    while (!isClosed_ && Get() && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!::IsDialogMessageW(Get(), &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        if (message.message == WM_KEYDOWN && Get()) {
            // Not every platform marks it again where the focus leaves a button of no dialog.
            parts_->ShowDefaultButton();
        }
    }
    if (message.message == WM_QUIT) {
        ::PostQuitMessage(static_cast<int>(message.wParam));
    }
}

} // namespace

bool ShowRuleEditor(HWND owner, bool changed) {
    const Win::ActivationContext visualStyles(Com::ModuleHandle());
    const Win::ActivationScope styled(visualStyles);
    RuleEditorWindow window(owner, changed);
    window.Run();
    return window.Changed();
}

} // namespace Quorvane::Editor
