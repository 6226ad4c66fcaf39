// SPDX-License-Identifier: MIT
// `frmRuleEditor`: the window in which rules are designed.
#include "editor/rules/RuleEditorWindow.h"

#include <algorithm>
#include <memory>

#include "control/Resource.h"
#include "control/com/Module.h"
#include "editor/Controls.h"
#include "editor/MessagePrompt.h"
#include "editor/rules/PanelWindow.h"
#include "editor/rules/RuleListView.h"
#include "win/ActivationContext.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

enum ChildId : UINT {
    PicInputId = 100,
    PicOutputId,
    LvwRuleId,
    TxtWeightId,
    CmdAddId,
    CmdDeleteId,
};

/// Leaving the weight box is checked after the focus has moved, when a message box may appear.
constexpr UINT ValidateWeightMessage = WM_APP + 1;

// In dialog units.
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int LabelHeight = 8;
constexpr int ButtonWidth = 58;
constexpr int ButtonHeight = 14;
constexpr int WeightWidth = 44;
constexpr int WeightHeight = 12;
constexpr int WindowWidth = 420;
constexpr int WindowHeight = 280;
constexpr int SmallestListWidth = 120;

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
    void MakeControls();
    void TakeOwnersIcon() const;
    void TakeRoom() const;
    void Arrange();
    int SidePanelsWidth() const;
    void Reflect();
    void OnCommand(UINT id, UINT code);
    void OnWeightLeft();
    void Add();
    void Delete();
    double TwipsWidth(TextView text) const;

    HWND owner_;
    int dpi_;
    MessagePrompt prompt_;
    RuleEditor editor_;
    DialogFont font_;
    /// The font of the rows, in which `picRule` measures the columns.
    DialogFont rowFont_;
    Win::ChildWindow lblAntecedent_;
    Win::ChildWindow lblConsequent_;
    Win::ChildWindow lblWeight_;
    Win::ChildWindow txtWeight_;
    Win::ChildWindow cmdAdd_;
    Win::ChildWindow cmdDelete_;
    Win::ChildWindow cmdClose_;
    std::unique_ptr<PanelWindow> picInput_;
    std::unique_ptr<PanelWindow> picOutput_;
    std::unique_ptr<RuleListView> lvwRule_;
    /// Whether what the controls report now comes from the editor and not from the user.
    bool isShowing_ = true;
    bool isClosed_ = false;
    /// What has the keyboard when the window becomes active again.
    HWND focus_ = nullptr;
};

RuleEditorWindow::RuleEditorWindow(HWND owner, bool changed)
    : owner_(owner), dpi_(Win::DpiOf(owner)), editor_(prompt_, changed), font_(dpi_),
      rowFont_(dpi_, FW_BOLD) {
    RECT around{};
    ::GetWindowRect(owner_, &around);
    const int left = static_cast<int>(around.left) + font_.X(Margin) * 3;
    const int top = static_cast<int>(around.top) + font_.Y(Margin) * 3;
    Make<RuleEditorWindow>(
        Com::ModuleHandle(),
        {.Parent = owner_,
         .Position = {left, top, left + font_.X(WindowWidth), top + font_.Y(WindowHeight)},
         .Style =
             WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN,
         .ExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT,
         .Id = 0});
    prompt_.SetOwner(Get());
    ::SetWindowTextW(Get(), Win::Wide(CurrentRuleEditorCaptions().RuleBase));
    TakeOwnersIcon();
    MakeControls();
    TakeRoom();
    Arrange();
    Reflect();
}

RuleEditorWindow::~RuleEditorWindow() {
    lvwRule_.reset();
    picInput_.reset();
    picOutput_.reset();
    Destroy();
}

double RuleEditorWindow::TwipsWidth(TextView text) const {
    return Win::TwipsOf(rowFont_.TextWidth(text), dpi_);
}

void RuleEditorWindow::MakeControls() {
    const RuleEditorCaptions captions = CurrentRuleEditorCaptions();
    const auto label = [&](const Text& caption) {
        return MakeControl(Get(), WC_STATICW, caption, SS_LEFT | SS_NOPREFIX, 0, font_);
    };
    const auto button = [&](const Text& caption, UINT id, DWORD style) {
        return MakeControl(Get(), WC_BUTTONW, caption, WS_TABSTOP | style, id, font_);
    };
    // In the order of the tab key: conditions, conclusions, weight, buttons, rules.
    lblAntecedent_ = label(captions.Antecedent);
    picInput_ = std::make_unique<PanelWindow>(Get(), PicInputId, editor_.Panel(Side::Input), font_,
                                              [this](std::size_t variable, std::size_t item) {
                                                  editor_.ChooseTerm(Side::Input, variable, item);
                                              });
    lblConsequent_ = label(captions.Consequent);
    picOutput_ =
        std::make_unique<PanelWindow>(Get(), PicOutputId, editor_.Panel(Side::Output), font_,
                                      [this](std::size_t variable, std::size_t item) {
                                          editor_.ChooseTerm(Side::Output, variable, item);
                                      });
    lblWeight_ = label(captions.Weight);
    txtWeight_ = MakeControl(Get(), WC_EDITW, {}, WS_TABSTOP | ES_AUTOHSCROLL, TxtWeightId, font_,
                             WS_EX_CLIENTEDGE);
    cmdAdd_ = button(captions.Add, CmdAddId, BS_DEFPUSHBUTTON);
    cmdDelete_ = button(captions.Delete, CmdDeleteId, BS_PUSHBUTTON);
    cmdClose_ = button(captions.Close, IDCANCEL, BS_PUSHBUTTON);
    const auto columns = MakeRuleColumns(editor_.Panel(Side::Input), editor_.Panel(Side::Output),
                                         [this](TextView text) { return TwipsWidth(text); });
    lvwRule_ =
        std::make_unique<RuleListView>(Get(), LvwRuleId, editor_, font_, rowFont_, columns, dpi_,
                                       RuleListView::Events{.RowClicked =
                                                                [this](std::size_t row) {
                                                                    editor_.SelectRow(row);
                                                                    Reflect();
                                                                },
                                                            .HeaderClicked =
                                                                [this](std::size_t column) {
                                                                    editor_.SortBy(column);
                                                                    Reflect();
                                                                },
                                                            .DeletePressed = [this] { Delete(); }});
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
    RECT window{};
    RECT client{};
    ::GetWindowRect(Get(), &window);
    ::GetClientRect(Get(), &client);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(Get(), MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& room = monitor.rcWork;
    const LONG frame = window.right - window.left - client.right;
    const LONG wanted = frame + SidePanelsWidth() + 2 * font_.X(Margin) + 2 * font_.X(Gap) +
                        lvwRule_->NaturalWidth();
    const LONG width =
        std::min(std::max(wanted, window.right - window.left), room.right - room.left);
    const LONG height = std::min(window.bottom - window.top, room.bottom - room.top);
    const LONG left = std::max(room.left, std::min(window.left, room.right - width));
    const LONG top = std::max(room.top, std::min(window.top, room.bottom - height));
    ::SetWindowPos(Get(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

int RuleEditorWindow::SidePanelsWidth() const {
    return std::max(picInput_->NaturalWidth(), picOutput_->NaturalWidth());
}

void RuleEditorWindow::Arrange() {
    if (!lvwRule_) {
        return;
    }
    RECT area{};
    ::GetClientRect(Get(), &area);
    const int marginX = font_.X(Margin);
    const int marginY = font_.Y(Margin);
    const int gapX = font_.X(Gap);
    const int gapY = font_.Y(Gap);
    const int labelHeight = font_.Y(LabelHeight);
    const int right = static_cast<int>(area.right) - marginX;
    const int bottom = static_cast<int>(area.bottom) - marginY;
    const auto place = [](HWND window, int x, int y, int width, int height) {
        ::MoveWindow(window, x, y, std::max(0, width), std::max(0, height), TRUE);
    };

    // The panels share the left side; the list of the rules takes the room that is left.
    const int panels = SidePanelsWidth();
    const int panelHeight = (bottom - marginY - 2 * (labelHeight + gapY) - gapY) / 2;
    int top = marginY;
    place(lblAntecedent_.Get(), marginX, top, panels, labelHeight);
    top += labelHeight + gapY;
    place(picInput_->Get(), marginX, top, panels, panelHeight);
    top += panelHeight + gapY;
    place(lblConsequent_.Get(), marginX, top, panels, labelHeight);
    top += labelHeight + gapY;
    place(picOutput_->Get(), marginX, top, panels, bottom - top);

    const int listLeft = marginX + panels + 2 * gapX;
    const int buttonTop = bottom - font_.Y(ButtonHeight);
    place(lvwRule_->Window(), listLeft, marginY, right - listLeft, buttonTop - gapY - marginY);
    const int weightLabel = font_.TextWidth(TextOf(lblWeight_.Get())) + gapX;
    const int weightTop = buttonTop + (font_.Y(ButtonHeight) - font_.Y(WeightHeight)) / 2;
    place(lblWeight_.Get(), listLeft, buttonTop + font_.Y(3), weightLabel, labelHeight);
    place(txtWeight_.Get(), listLeft + weightLabel, weightTop, font_.X(WeightWidth),
          font_.Y(WeightHeight));
    int left = right - 3 * font_.X(ButtonWidth) - 2 * gapX;
    left = std::max(left, listLeft + weightLabel + font_.X(WeightWidth) + gapX);
    for (HWND const button : {cmdAdd_.Get(), cmdDelete_.Get(), cmdClose_.Get()}) {
        place(button, left, buttonTop, font_.X(ButtonWidth), font_.Y(ButtonHeight));
        left += font_.X(ButtonWidth) + gapX;
    }
}

void RuleEditorWindow::Reflect() {
    isShowing_ = true;
    picInput_->ShowSelection();
    picOutput_->ShowSelection();
    SetText(txtWeight_.Get(), editor_.Weight());
    lvwRule_->Reflect();
    isShowing_ = false;
    HWND const focus = ::GetFocus();
    ::EnableWindow(cmdAdd_.Get(), editor_.CanAdd());
    ::EnableWindow(cmdDelete_.Get(), editor_.CanDelete());
    if (focus == cmdDelete_.Get() && !editor_.CanDelete()) {
        ::SetFocus(lvwRule_->Window());
    }
}

void RuleEditorWindow::Add() {
    ::SetFocus(txtWeight_.Get());
    editor_.Add();
    Reflect();
    ::SendMessageW(txtWeight_.Get(), EM_SETSEL, 0, -1);
}

void RuleEditorWindow::Delete() {
    editor_.Delete();
    Reflect();
}

/// Buttons that check the weight themselves, or close the window, are reached without a check.
void RuleEditorWindow::OnWeightLeft() {
    HWND const focus = ::GetFocus();
    const bool staysInWindow = ::IsChild(Get(), focus) != FALSE;
    if (staysInWindow && focus != cmdAdd_.Get() && focus != cmdClose_.Get()) {
        ::PostMessageW(Get(), ValidateWeightMessage, 0, 0);
    }
}

void RuleEditorWindow::OnCommand(UINT id, UINT code) {
    switch (id) {
    case TxtWeightId:
        if (code == EN_CHANGE && !isShowing_) {
            editor_.EditWeight(TextOf(txtWeight_.Get()));
            ::EnableWindow(cmdDelete_.Get(), editor_.CanDelete());
        } else if (code == EN_KILLFOCUS) {
            OnWeightLeft();
        }
        break;
    case IDOK: // Enter, in whatever field
    case CmdAddId:
        if (code == BN_CLICKED) {
            Add();
        }
        break;
    case CmdDeleteId:
        if (code == BN_CLICKED) {
            Delete();
        }
        break;
    case IDCANCEL:
        isClosed_ = true;
        break;
    default:
        break;
    }
}

LRESULT RuleEditorWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        Arrange();
        return 0;
    case WM_GETMINMAXINFO:
        if (lvwRule_) {
            auto& sizes = *reinterpret_cast<MINMAXINFO*>(second);
            sizes.ptMinTrackSize = {SidePanelsWidth() + font_.X(SmallestListWidth + 90),
                                    font_.Y(WindowHeight / 2)};
        }
        return 0;
    case WM_ACTIVATE:
        // As dialogs do it: a message box gives the keyboard back to the field it interrupted.
        if (LOWORD(first) == WA_INACTIVE) {
            focus_ = ::GetFocus();
        } else {
            ::SetFocus(focus_);
        }
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(first), HIWORD(first));
        return 0;
    case WM_NOTIFY: {
        auto& header = *reinterpret_cast<NMHDR*>(second);
        return header.idFrom == LvwRuleId && lvwRule_ ? lvwRule_->OnNotify(header) : 0;
    }
    case ValidateWeightMessage:
        if (!editor_.ValidateWeight()) {
            ::SetFocus(txtWeight_.Get());
            ::SendMessageW(txtWeight_.Get(), EM_SETSEL, 0, -1);
        } else {
            isShowing_ = true;
            SetText(txtWeight_.Get(), editor_.Weight());
            isShowing_ = false;
        }
        return 0;
    case WM_ERASEBKGND: {
        RECT area{};
        ::GetClientRect(Get(), &area);
        ::FillRect(reinterpret_cast<HDC>(first), &area, ::GetSysColorBrush(COLOR_BTNFACE));
        return TRUE;
    }
    case DM_GETDEFID:
        return MAKELRESULT(CmdAddId, DC_HASDEFID);
    case WM_CLOSE:
        isClosed_ = true;
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

void RuleEditorWindow::Run() {
    ::EnableWindow(owner_, FALSE);
    focus_ = lvwRule_->Window();
    ::ShowWindow(Get(), SW_SHOW);
    MSG message{};
    // The window goes with its owner when a host destroys its frame meanwhile.
    while (!isClosed_ && Get() && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!::IsDialogMessageW(Get(), &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
    if (message.message == WM_QUIT) {
        ::PostQuitMessage(static_cast<int>(message.wParam));
    }
    ::EnableWindow(owner_, TRUE);
}

} // namespace

bool ShowRuleEditor(HWND owner, bool changed) {
    const Win::ActivationContext visualStyles(Com::ModuleHandle(), QUORVANE_MANIFEST);
    const Win::ActivationScope styled(visualStyles);
    RuleEditorWindow window(owner, changed);
    window.Run();
    return window.Changed();
}

} // namespace Quorvane::Editor
