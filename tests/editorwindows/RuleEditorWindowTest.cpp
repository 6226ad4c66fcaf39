// SPDX-License-Identifier: MIT
// The rule editor's window, worked with mouse and keyboard, and a whole design from nothing.
#include <gtest/gtest.h>

#include <cstdio>

#include "control/com/Scoped.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

constexpr int LvwRuleId = 102;
constexpr int TxtWeightId = 103;
constexpr int CmdAddId = 104;
constexpr int CmdDeleteId = 105;

/// A person in the rule editor.
class Editor {
  public:
    explicit Editor(HWND window) : window_(window) {}

    HWND Part(int id) const { return ::GetDlgItem(window_, id); }
    HWND Rules() const { return Part(LvwRuleId); }

    int RowCount() const { return ListView_GetItemCount(Rules()); }

    Text Cell(int row, int column) const {
        wchar_t text[64]{};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(std::size(text));
        ::SendMessageW(Rules(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&item));
        return Com::ToText(text);
    }

    Texts Row(int row, int columns) const {
        Texts cells;
        for (int column = 0; column < columns; ++column) {
            cells.push_back(Cell(row, column));
        }
        return cells;
    }

    int SelectedRow() const { return ListView_GetNextItem(Rules(), -1, LVNI_SELECTED); }

    void ClickRow(int row) const {
        RECT area{};
        ListView_GetItemRect(Rules(), row, &area, LVIR_LABEL);
        const LPARAM place = MAKELPARAM(area.left + 4, (area.top + area.bottom) / 2);
        ::PostMessageW(Rules(), WM_LBUTTONDOWN, MK_LBUTTON, place);
        ::PostMessageW(Rules(), WM_LBUTTONUP, 0, place);
        Pump();
    }

    /// Chooses a term by its name in a list box, found by the name it has as its window text.
    void Choose(TextView list, TextView term) const {
        HWND const box = FindChild(window_, list);
        ASSERT_NE(box, nullptr);
        const auto index = ::SendMessageW(box, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(Com::Wide(Text(term))));
        ASSERT_GE(index, 0);
        ::SetFocus(box);
        ::SendMessageW(box, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
        ::SendMessageW(::GetParent(box), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(box), LBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(box));
    }

    Text Chosen(TextView list) const {
        HWND const box = FindChild(window_, list);
        wchar_t text[64]{};
        ::SendMessageW(box, LB_GETTEXT,
                       static_cast<WPARAM>(::SendMessageW(box, LB_GETCURSEL, 0, 0)),
                       reinterpret_cast<LPARAM>(text));
        return Com::ToText(text);
    }

    void TypeWeight(TextView weight) const {
        ::SetFocus(Part(TxtWeightId));
        ::SendMessageW(Part(TxtWeightId), EM_SETSEL, 0, -1);
        ::SendMessageW(Part(TxtWeightId), EM_REPLACESEL, FALSE,
                       reinterpret_cast<LPARAM>(Com::Wide(Text(weight))));
    }

    void Push(int id) const {
        const LPARAM place = MAKELPARAM(5, 5);
        ::PostMessageW(Part(id), WM_LBUTTONDOWN, MK_LBUTTON, place);
        ::PostMessageW(Part(id), WM_LBUTTONUP, 0, place);
        Pump();
    }

    void AddRule(std::initializer_list<std::pair<TextView, TextView>> choices,
                 TextView weight) const {
        for (const auto& [list, term] : choices) {
            Choose(list, term);
        }
        TypeWeight(weight);
        Push(CmdAddId);
    }

    /// Esc, as the window's own message loop brings it.
    void Escape() const { ::PostMessageW(Rules(), WM_KEYDOWN, VK_ESCAPE, 0); }

  private:
    static HWND FindChild(HWND parent, TextView name) {
        struct Search {
            Text Name;
            HWND Found;
            static BOOL CALLBACK Look(HWND window, LPARAM search) {
                auto& self = *reinterpret_cast<Search*>(search);
                if (WindowText(window) == self.Name) {
                    self.Found = window;
                }
                return self.Found == nullptr;
            }
        } search{Text(name), nullptr};
        ::EnumChildWindows(parent, Search::Look, reinterpret_cast<LPARAM>(&search));
        return search.Found;
    }

    HWND window_;
};

TEST_F(PageTest, RuleEditorListsTheRulesAndShowsTheLast) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const Editor editor(window);
        EXPECT_EQ(WindowText(window), u"Rule Base");
        EXPECT_FALSE(::IsWindowEnabled(frame_));
        EXPECT_EQ(editor.RowCount(), 4);
        EXPECT_EQ(editor.Row(1, 5), (Texts{u"2", u"Low", u"High", u"Four", u"1"}));
        EXPECT_EQ(editor.SelectedRow(), 3);
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"High");
        EXPECT_EQ(editor.Chosen(u"lstOutSum"), u"Twelve");
        EXPECT_EQ(WindowText(editor.Part(TxtWeightId)), u"1");
        EXPECT_TRUE(::IsWindowEnabled(editor.Part(CmdDeleteId)));
        editor.Escape();
    });
    EXPECT_TRUE(::IsWindowEnabled(frame_));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, RuleEditorAddsReweighsAndDeletes) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const Editor editor(window);
        editor.AddRule({{u"lstInA", u"[NONE]"}, {u"lstInB", u"Low"}, {u"lstOutSum", u"None"}},
                       u"0.50");
        EXPECT_EQ(editor.Row(4, 5), (Texts{u"5", u"[NONE]", u"Low", u"None", u"0.5"}));
        EXPECT_EQ(editor.SelectedRow(), 4);
        // The same rule again changes its weight.
        editor.TypeWeight(u"0.25");
        EXPECT_FALSE(::IsWindowEnabled(editor.Part(CmdDeleteId)));
        editor.Push(CmdAddId);
        EXPECT_EQ(editor.RowCount(), 5);
        EXPECT_EQ(editor.Cell(4, 4), u"0.25");
        editor.ClickRow(0);
        EXPECT_EQ(editor.Chosen(u"lstInB"), u"Low");
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"Low");
        editor.Push(CmdDeleteId);
        EXPECT_EQ(editor.RowCount(), 4);
        editor.Escape();
    });
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(GetText(*control, &_FISControl::get_Rules),
              Stored(u"A>Low;B>High/Sum<Four:1|A>High;B>Low/Sum<Eight:1|"
                     u"A>High;B>High/Sum<Twelve:1|A>[NONE];B>Low/Sum<None:0.25"));
}

TEST_F(PageTest, RuleEditorRefusesAWeightAboveOne) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const Editor editor(window);
        MessageBoxes boxes;
        editor.TypeWeight(u"1.5");
        editor.Push(CmdAddId);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Enter a number less than 1!");
        EXPECT_EQ(boxes.Shown[0].Owner, window);
        EXPECT_EQ(::GetFocus(), editor.Part(TxtWeightId));
        EXPECT_EQ(editor.RowCount(), 4);
        editor.Escape();
    });
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, RuleEditorLeavesWithAFrameThatIsDestroyed) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND) { ::DestroyWindow(std::exchange(frame_, nullptr)); });
    EXPECT_EQ(::FindWindowW(L"QuorvaneRuleEditor", nullptr), nullptr);
}

/// 32,767 rules over five inputs of eight terms.
Text ManyRules() {
    Text rules;
    for (int i = 0; i < 32767; ++i) {
        char rule[96];
        std::snprintf(rule, sizeof rule, "A>T%d;B>T%d;C>T%d;D>T%d;E>T%d/Y<P:1|", i % 8, i / 8 % 8,
                      i / 64 % 8, i / 512 % 8, i / 4096 % 8);
        rules += Widen(rule);
    }
    rules.pop_back();
    return rules;
}

TEST_F(PageTest, RuleEditorTakes32767Rules) {
    Text inputs;
    for (const char16_t name : TextView(u"ABCDE")) {
        inputs += Text(1, name) + u"/8/0/";
        for (char16_t term = u'0'; term < u'8'; ++term) {
            inputs += Text(u"T") + term + u",0,1,2,3" + (term < u'7' ? u";" : u"|");
        }
    }
    inputs.pop_back();
    const Text rules = ManyRules();
    const Placed control = Design({inputs, u"Y/1/0/P,0.5", rules});
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const Editor editor(window);
        EXPECT_EQ(editor.RowCount(), 32767);
        EXPECT_EQ(editor.SelectedRow(), 32766);
        editor.Push(CmdDeleteId);
        EXPECT_EQ(editor.RowCount(), 32766);
        editor.Escape();
    });
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
}

TEST_F(PageTest, ASystemIsDesignedFromNothingSavedLoadedAndFired) {
    // One input and one output to begin with; their only terms stay until others are there.
    const Placed designed =
        Design({u"Speed/1/0/MF_1,0,0,0,1", u"Brake/1/0/MF_1,0", u"Speed>MF_1/Brake<MF_1:1"});
    Open({designed.Control.Get()});
    HWND const inputs = Tree(true);
    HWND const outputs = Tree(false);
    MessageBoxes boxes(AnswerYes);

    // The input: 0..100 with Slow 0,0,0,100 and Fast 0,100,100,100.
    Click(inputs, Item(inputs, {u"Speed", u"1"}));
    EditLabel(inputs, u"100");
    Click(inputs, Item(inputs, {u"Speed", u"MF_1"}));
    EditLabel(inputs, u"Slow");
    HTREEITEM slow = Item(inputs, {u"Speed", u"Slow"});
    Click(
        inputs,
        TreeView_GetNextSibling(
            inputs, TreeView_GetNextSibling(
                        inputs, TreeView_GetNextSibling(inputs, TreeView_GetChild(inputs, slow)))));
    EditLabel(inputs, u"100");
    Click(inputs, Item(inputs, {u"Speed"}));
    Press(inputs, VK_INSERT);
    EditLabel(inputs, u"Fast");
    HTREEITEM point = TreeView_GetChild(inputs, Item(inputs, {u"Speed", u"Fast"}));
    // The new term stands at 20, 40, 60, 80: its points are moved from the outside in.
    Click(inputs, point);
    EditLabel(inputs, u"0");
    for (const int index : {3, 2, 1}) {
        HTREEITEM moved = TreeView_GetChild(inputs, Item(inputs, {u"Speed", u"Fast"}));
        for (int i = 0; i < index; ++i) {
            moved = TreeView_GetNextSibling(inputs, moved);
        }
        Click(inputs, moved);
        EditLabel(inputs, u"100");
    }

    // The output: 0..8 with Off 0 and Full 8.
    Click(outputs, Item(outputs, {u"Brake", u"1"}));
    EditLabel(outputs, u"8");
    Click(outputs, Item(outputs, {u"Brake", u"MF_1"}));
    EditLabel(outputs, u"Off");
    Click(outputs, Item(outputs, {u"Brake"}));
    Press(outputs, VK_INSERT);
    EditLabel(outputs, u"Full");
    Click(outputs, TreeView_GetChild(outputs, Item(outputs, {u"Brake", u"Full"})));
    EditLabel(outputs, u"8");

    InRuleEditor([&](HWND window) {
        const Editor editor(window);
        editor.AddRule({{u"lstInSpeed", u"Slow"}, {u"lstOutBrake", u"Off"}}, u"1");
        editor.AddRule({{u"lstInSpeed", u"Fast"}, {u"lstOutBrake", u"Full"}}, u"1");
        editor.Escape();
    });
    EXPECT_TRUE(boxes.Shown.empty());
    ASSERT_EQ(page_->Apply(), S_OK);
    Close();

    const auto bag = SaveToBag(designed, false);
    const Placed running = Place(true);
    ASSERT_EQ(LoadFrom(running.Control, *bag), S_OK);
    PutItem(InVals(running), u"Speed", 25);
    ASSERT_EQ(running->Fire(), S_OK);
    // Slow 0.75 and Fast 0.25: (0.75 x 0 + 0.25 x 8) / 1 = 2.
    EXPECT_EQ(Output(running, u"Brake"), 2.0);
}

} // namespace
} // namespace Quorvane
