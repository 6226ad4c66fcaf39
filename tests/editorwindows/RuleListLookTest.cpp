// SPDX-License-Identifier: MIT
// What can be read in the rule editor: widths of columns, tips of cut cells, list boxes.
#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>

#include "com/Scoped.h"
#include "tests/editorwindows/HoverTips.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"
#include "win/Handle.h"

namespace Quorvane {
namespace {

/// What a list keeps free beside a text.
constexpr int CellRoom = 12;

class RuleListLookTest : public PageTest {
  protected:
    void Work(const System& system, bool inChinese,
              const std::function<void(const RuleEditorHands&)>& work) {
        const Placed control = Place(false);
        control.Site->Ambients[DISPID_AMBIENT_LOCALEID] =
            Com::Variant(LONG{inChinese ? 2052 : 1033});
        ASSERT_EQ(LoadSystem(control, system), S_OK);
        Open({control.Control.Get()});
        InRuleEditor([&](HWND window) {
            const RuleEditorHands editor(window);
            work(editor);
            editor.Escape();
        });
        Close();
    }
};

/// A variable of a short name with terms of long ones.
constexpr System ShortNames = {
    u"TempDiff/2/0/Low,0,0,0,2;High,0,2,2,2|B/4/0/Falling,0,0,0,4;High,0,4,4,4",
    u"Valve/12/0/None,0;Four,4|Fan/1/0/Off,0;Medium,1",
    u"TempDiff>Low;B>Falling/Valve<None;Fan<Medium:1",
};

int WidthIn(HFONT font, TextView text) {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    SIZE size{};
    ::GetTextExtentPoint32W(screen.Get(), Com::Wide(Text(text)), static_cast<int>(text.size()),
                            &size);
    return static_cast<int>(size.cx);
}

/// The bold form of a window's font, in which the rows are written.
Win::Font BoldFontOf(HWND window) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font,
                 &font);
    font.lfWeight = FW_BOLD;
    return Win::Font(::CreateFontIndirectW(&font));
}

Text Heading(HWND list, int column) {
    wchar_t text[64]{};
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = text;
    asked.cchTextMax = static_cast<int>(std::size(text));
    ::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                   reinterpret_cast<LPARAM>(&asked));
    return Com::ToText(text);
}

TEST_F(RuleListLookTest, NoNumberHeadingOrTermIsCutOff) {
    for (const bool inChinese : {false, true}) {
        Work(ShortNames, inChinese, [](const RuleEditorHands& editor) {
            HWND const list = editor.Rules();
            const Win::Font bold = BoldFontOf(list);
            const auto plain = reinterpret_cast<HFONT>(::SendMessageW(list, WM_GETFONT, 0, 0));
            const TextView longest[] = {u"32768",  u"[NONE]", u"Falling",
                                        u"[NONE]", u"Medium", u"1"};
            for (int column = 0; column < 6; ++column) {
                const int width = ListView_GetColumnWidth(list, column);
                EXPECT_GE(width, WidthIn(bold.Get(), longest[column]) + CellRoom) << column;
                EXPECT_GE(width, WidthIn(plain, Heading(list, column)) + CellRoom) << column;
            }
        });
    }
}

TEST_F(RuleListLookTest, TheColumnsKeepTheProportionsOfTheirHeadings) {
    Work(ShortNames, false, [](const RuleEditorHands& editor) {
        HWND const list = editor.Rules();
        const Win::Font bold = BoldFontOf(list);
        double smallest = 9;
        double largest = 0;
        for (int column = 0; column < 6; ++column) {
            const double factor = column == 0 || column == 5 ? 2 : 1.25;
            const double scale = ListView_GetColumnWidth(list, column) /
                                 (factor * WidthIn(bold.Get(), Heading(list, column)));
            smallest = std::min(smallest, scale);
            largest = std::max(largest, scale);
        }
        EXPECT_GE(smallest, 0.98);
        EXPECT_LE(largest, smallest * 1.15) << "one font measures all columns";
    });
}

TEST_F(RuleListLookTest, ACellThatIsCutOffShowsItsTextInATip) {
    Work(ShortNames, false, [](const RuleEditorHands& editor) {
        HWND const list = editor.Rules();
        RECT cell{};
        ListView_GetSubItemRect(list, 0, 4, LVIR_BOUNDS, &cell);
        const POINT inside{cell.left + 10, (cell.top + cell.bottom) / 2};
        EXPECT_EQ(TipAt(list, inside), u"") << "while it is whole";
        ListView_SetColumnWidth(list, 4, 30);
        EXPECT_EQ(TipAt(list, {inside.x + 3, inside.y}), u"Medium");
        ListView_GetSubItemRect(list, 0, 2, LVIR_BOUNDS, &cell);
        EXPECT_EQ(TipAt(list, {cell.left + 10, inside.y}), u"") << "of a whole cell beside it";
    });
}

TEST_F(RuleListLookTest, NoneIsInViewInEachListWhereNothingElseIsChosen) {
    const System system{u"A/1/0/T1,0,0,0,1;T2,0,0,0,1;T3,0,0,0,1;T4,0,0,0,1;T5,0,0,0,1",
                        u"Y/1/0/P1,0;P2,0;P3,0;P4,0;P5,0", u"A>[NONE]/Y<[NONE]:1|A>T5/Y<P5:1"};
    Work(system, false, [](const RuleEditorHands& editor) {
        const auto top = [&](TextView list) {
            return ::SendMessageW(editor.Find(list), LB_GETTOPINDEX, 0, 0);
        };
        EXPECT_GT(top(u"lstInA"), 0);
        editor.ClickRow(0);
        EXPECT_EQ(top(u"lstInA"), 0);
        EXPECT_EQ(top(u"lstOutY"), 0);
        // Scrolled away by the wheel, it comes back with the next rule.
        for (const TextView list : {u"lstInA", u"lstOutY"}) {
            ::SendMessageW(editor.Find(list), LB_SETTOPINDEX, 3, 0);
        }
        editor.ClickRow(0);
        EXPECT_EQ(top(u"lstInA"), 0);
        EXPECT_EQ(top(u"lstOutY"), 0);
    });
    const System withoutRules{system.Inputs, system.Outputs, u""};
    Work(withoutRules, false, [](const RuleEditorHands& editor) {
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"[NONE]");
        EXPECT_EQ(::SendMessageW(editor.Find(u"lstInA"), LB_GETTOPINDEX, 0, 0), 0);
        EXPECT_EQ(::SendMessageW(editor.Find(u"lstOutY"), LB_GETTOPINDEX, 0, 0), 0);
    });
}

TEST_F(RuleListLookTest, TheListBoxesShowWholeRows) {
    Work(ShortNames, false, [](const RuleEditorHands& editor) {
        for (const TextView name : {u"lstInTempDiff", u"lstOutFan"}) {
            HWND const list = editor.Find(name);
            RECT room{};
            ::GetClientRect(list, &room);
            const auto row = ::SendMessageW(list, LB_GETITEMHEIGHT, 0, 0);
            ASSERT_GT(row, 0);
            EXPECT_LT(room.bottom % row, 3) << Narrow(name);
        }
    });
}

TEST_F(RuleListLookTest, AnAddedRuleGoesWhereTheOrderSays) {
    Work(ShortNames, false, [](const RuleEditorHands& editor) {
        editor.ClickHeader(1);
        editor.AddRule({{u"lstInTempDiff", u"High"}}, u"1");
        EXPECT_EQ(editor.Column(1), (std::vector<Text>{u"High", u"Low"}));
        EXPECT_EQ(editor.SelectedRow(), 0);
    });
}

TEST_F(RuleListLookTest, TheDefaultButtonIsMarkedThroughoutARoundOfTab) {
    const Placed control = Design(ShortNames);
    Open({control.Control.Get()});
    std::vector<std::function<void(HWND)>> steps;
    for (int i = 0; i < 10; ++i) {
        steps.emplace_back([i](HWND window) {
            const RuleEditorHands editor(window);
            HWND const focus = ::GetFocus();
            const int marked = focus == editor.Part(RuleEditorHands::CmdDelete) ||
                                       focus == editor.Part(RuleEditorHands::CmdClose)
                                   ? ::GetDlgCtrlID(focus)
                                   : RuleEditorHands::CmdAdd;
            for (const int id :
                 {RuleEditorHands::CmdAdd, RuleEditorHands::CmdDelete, RuleEditorHands::CmdClose}) {
                const auto style = ::GetWindowLongW(editor.Part(id), GWL_STYLE) & BS_TYPEMASK;
                EXPECT_EQ(style == BS_DEFPUSHBUTTON, id == marked) << "tab " << i << ", " << id;
            }
            ::PostMessageW(focus, WM_KEYDOWN, VK_TAB, 0);
        });
    }
    steps.emplace_back([](HWND window) { RuleEditorHands(window).Escape(); });
    InRuleEditor(std::move(steps));
}

} // namespace
} // namespace Quorvane
