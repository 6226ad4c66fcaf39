// SPDX-License-Identifier: MIT
// The parts of the rule editor's window, and where they are.
#include "editor/windows/RuleEditorParts.h"

#include <algorithm>
#include <cmath>

#include "win/Dpi.h"
#include "win/WindowText.h"

namespace Quorvane::Editor {
namespace {

// In dialog units.
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int LabelHeight = 8;
constexpr int LabelDrop = 3;
constexpr int ButtonWidth = 58;
constexpr int ButtonHeight = 14;
constexpr int WeightWidth = 44;
constexpr int WeightHeight = 12;
constexpr int UsualWidth = 420;
constexpr int UsualHeight = 280;
/// Beside the panels: weight and buttons in one row.
constexpr int SmallestRightWidth = 290;
constexpr int SmallestHeight = 140;
/// Of the arrow in the heading of the column that the rules are sorted by.
constexpr int ArrowWidth = 8;

void Place(HWND window, LONG left, LONG top, LONG width, LONG height) {
    ::MoveWindow(window, left, top, std::max(0L, width), std::max(0L, height), TRUE);
}

} // namespace

RuleEditorParts::RuleEditorParts(HWND window, RuleEditor& editor, RuleListView::Events events)
    : window_(window), editor_(editor), dpi_(Win::DpiOf(window)), font_(dpi_),
      rowFont_(dpi_, FW_BOLD) {
    const RuleEditorCaptions captions = CurrentRuleEditorCaptions();
    const auto label = [&](const Text& caption) {
        return MakeControl(window_, WC_STATICW, caption, SS_LEFT | SS_NOPREFIX, 0, font_);
    };
    const auto button = [&](const Text& caption, UINT id, DWORD style) {
        return MakeControl(window_, WC_BUTTONW, caption, WS_TABSTOP | BS_NOTIFY | style, id, font_);
    };
    // In the order of the tab key: conditions, conclusions, weight, buttons, rules.
    lblAntecedent_ = label(captions.Antecedent);
    MakePanel(Side::Input);
    lblConsequent_ = label(captions.Consequent);
    MakePanel(Side::Output);
    lblWeight_ = label(captions.Weight);
    txtWeight_ = MakeControl(window_, WC_EDITW, {}, WS_TABSTOP | ES_AUTOHSCROLL, TxtWeightId, font_,
                             WS_EX_CLIENTEDGE);
    cmdAdd_ = button(captions.Add, CmdAddId, BS_DEFPUSHBUTTON);
    cmdDelete_ = button(captions.Delete, CmdDeleteId, BS_PUSHBUTTON);
    cmdClose_ = button(captions.Close, CmdCloseId, BS_PUSHBUTTON);
    MakeList(std::move(events));
}

void RuleEditorParts::MakePanel(Side side) {
    const bool isInput = side == Side::Input;
    auto& panel = isInput ? picInput_ : picOutput_;
    panel = std::make_unique<PanelWindow>(window_, isInput ? PicInputId : PicOutputId,
                                          editor_.Panel(side), font_,
                                          [this, side](std::size_t variable, std::size_t item) {
                                              editor_.ChooseTerm(side, variable, item);
                                          });
}

void RuleEditorParts::MakeList(RuleListView::Events events) {
    const auto twips = [this](int pixels) -> double { return Win::TwipsOf(pixels, dpi_); };
    const RuleListMeasures texts{
        .Heading =
            [&](TextView text) { return twips(CellWidth(font_, text) + font_.X(ArrowWidth)); },
        .Cell = [&](TextView text) { return twips(CellWidth(rowFont_, text)); }};
    const auto picRule = [&](double scale) -> TextMeasure {
        const auto height = std::lround(scale * rowFont_.Units().CharacterHeight);
        const auto font =
            std::make_shared<Win::Font>(MakeDialogFontOfHeight(static_cast<int>(height), FW_BOLD));
        return [font, twips](TextView text) { return twips(TextWidth(font->Get(), text)); };
    };
    const auto columns = FitRuleColumns(editor_.Panel(Side::Input), editor_.Panel(Side::Output),
                                        RuleEditor::MostRules, texts, picRule);
    lvwRule_ = std::make_unique<RuleListView>(window_, LvwRuleId, editor_, font_, rowFont_, columns,
                                              dpi_, std::move(events));
}

void RuleEditorParts::UseDpi(int dpi) {
    DialogFont font(dpi);
    DialogFont rowFont(dpi, FW_BOLD);
    // The former fonts go once nothing shows them any more.
    std::swap(font_, font);
    std::swap(rowFont_, rowFont);
    ShowFont(window_, font_);
    picInput_->UseDpi(dpi);
    picOutput_->UseDpi(dpi);
    lvwRule_->Scale(dpi, dpi_);
    dpi_ = dpi;
}

int RuleEditorParts::SidePanelsWidth() const {
    return std::max(picInput_->NaturalWidth(), picOutput_->NaturalWidth());
}

SIZE RuleEditorParts::UsualSize(const DialogFont& font) {
    return {font.X(UsualWidth), font.Y(UsualHeight)};
}

SIZE RuleEditorParts::NaturalSize() const {
    const SIZE usual = UsualSize(font_);
    const LONG wanted =
        2 * font_.X(Margin) + SidePanelsWidth() + 2 * font_.X(Gap) + lvwRule_->NaturalWidth();
    return {std::max({wanted, usual.cx, SmallestSize().cx}), usual.cy};
}

SIZE RuleEditorParts::SmallestSize() const {
    return {SidePanelsWidth() + font_.X(SmallestRightWidth), font_.Y(SmallestHeight)};
}

void RuleEditorParts::Arrange() const {
    RECT room{};
    ::GetClientRect(window_, &room);
    ::InflateRect(&room, -font_.X(Margin), -font_.Y(Margin));
    ArrangePanels(room);
    room.left += SidePanelsWidth() + 2 * font_.X(Gap);
    ArrangeBelow(room);
    const LONG listBottom = room.bottom - font_.Y(ButtonHeight) - font_.Y(Gap);
    lvwRule_->Place(
        {room.left, room.top, std::max(room.left, room.right), std::max(room.top, listBottom)});
}

/// The panels share the left side.
void RuleEditorParts::ArrangePanels(const RECT& room) const {
    const LONG width = SidePanelsWidth();
    const LONG gap = font_.Y(Gap);
    const LONG labelHeight = font_.Y(LabelHeight);
    const LONG panelHeight = (room.bottom - room.top - 2 * (labelHeight + gap) - gap) / 2;
    LONG top = room.top;
    Place(lblAntecedent_.Get(), room.left, top, width, labelHeight);
    top += labelHeight + gap;
    Place(picInput_->Get(), room.left, top, width, panelHeight);
    top += panelHeight + gap;
    Place(lblConsequent_.Get(), room.left, top, width, labelHeight);
    top += labelHeight + gap;
    Place(picOutput_->Get(), room.left, top, width, room.bottom - top);
}

/// Weight and buttons stand in one row below the list.
void RuleEditorParts::ArrangeBelow(const RECT& room) const {
    const LONG gap = font_.X(Gap);
    const LONG rowHeight = font_.Y(ButtonHeight);
    const LONG top = room.bottom - rowHeight;
    const LONG labelWidth = font_.TextWidth(Win::TextOf(lblWeight_.Get())) + gap;
    Place(lblWeight_.Get(), room.left, top + font_.Y(LabelDrop), labelWidth, font_.Y(LabelHeight));
    const LONG weightLeft = room.left + labelWidth;
    Place(txtWeight_.Get(), weightLeft, top + (rowHeight - font_.Y(WeightHeight)) / 2,
          font_.X(WeightWidth), font_.Y(WeightHeight));
    const LONG buttonWidth = font_.X(ButtonWidth);
    LONG left =
        std::max(room.right - 3 * buttonWidth - 2 * gap, weightLeft + font_.X(WeightWidth) + gap);
    for (HWND const button : {cmdAdd_.Get(), cmdDelete_.Get(), cmdClose_.Get()}) {
        Place(button, left, top, buttonWidth, rowHeight);
        left += buttonWidth + gap;
    }
}

void RuleEditorParts::Reflect() const {
    picInput_->ShowSelection();
    picOutput_->ShowSelection();
    ReflectWeight();
    lvwRule_->Reflect();
    ReflectButtons();
}

void RuleEditorParts::ReflectWeight() const {
    Win::ShowText(txtWeight_.Get(), editor_.Weight());
}

void RuleEditorParts::ReflectButtons() const {
    HWND const focus = ::GetFocus();
    Win::Enable(cmdAdd_.Get(), editor_.CanAdd());
    Win::Enable(cmdDelete_.Get(), editor_.CanDelete());
    if (focus && ::GetParent(focus) == window_ && !::IsWindowEnabled(focus)) {
        ::SetFocus(lvwRule_->Window());
    }
}

void RuleEditorParts::ShowDefaultButton() const {
    HWND const buttons[] = {cmdAdd_.Get(), cmdDelete_.Get(), cmdClose_.Get()};
    HWND const focus = ::GetFocus();
    HWND const pressed =
        std::ranges::find(buttons, focus) == std::end(buttons) ? cmdAdd_.Get() : focus;
    for (HWND const button : buttons) {
        const bool isDefault =
            (::GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault != (button == pressed)) {
            ::SendMessageW(button, BM_SETSTYLE, isDefault ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON, TRUE);
        }
    }
}

void RuleEditorParts::GoToWeight() const {
    ::SetFocus(txtWeight_.Get());
    ::SendMessageW(txtWeight_.Get(), EM_SETSEL, 0, -1);
}

} // namespace Quorvane::Editor
