// SPDX-License-Identifier: MIT
// The rule editor's focus, keys, panels and list in the real window.
#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/com/support/HeldKey.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

/// Works in the rule editor over a system; it is closed at the end.
class RuleEditorKeysTest : public PageTest {
  protected:
    void Work(const System& system, const std::function<void(const RuleEditorHands&)>& work) {
        const Placed control = Design(system);
        Open({control.Control.Get()});
        InRuleEditor([&](HWND window) {
            const RuleEditorHands editor(window);
            work(editor);
            editor.Escape();
        });
        Close();
    }
};

TEST_F(RuleEditorKeysTest, ABadWeightIsNotLeftByTheTabKey) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        MessageBoxes boxes;
        editor.TypeWeight(u"abc");
        editor.Type(VK_TAB);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Should be a number!");
        EXPECT_EQ(::GetFocus(), editor.Weight());
        editor.TypeWeight(u"0.50");
        editor.Type(VK_TAB);
        EXPECT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(::GetFocus(), editor.Part(RuleEditorHands::CmdAdd));
        EXPECT_EQ(WindowText(editor.Weight()), u"0.5");
    });
}

TEST_F(RuleEditorKeysTest, ABadWeightIsNotLeftThroughAButtonThatIsNotPressed) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        MessageBoxes boxes;
        editor.TypeWeight(u"2");
        // The mouse goes down on the button, and up again beside it.
        HWND const add = editor.Part(RuleEditorHands::CmdAdd);
        ::SendMessageW(add, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        Pump();
        EXPECT_TRUE(boxes.Shown.empty()) << "while the mouse is down";
        ::SendMessageW(add, WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
        ::SetFocus(editor.Rules());
        Pump();
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Enter a number less than 1!");
        EXPECT_EQ(::GetFocus(), editor.Weight());
    });
}

/// Two inputs with a rule whose weight no one could type.
constexpr System HeavyRule = {TwoInputs.Inputs, TwoInputs.Outputs,
                              u"A>Low;B>Low/Sum<None:2|A>Low;B>High/Sum<Four:1"};

TEST_F(RuleEditorKeysTest, ALoadedRuleOfAnyWeightIsSelectedAndDeleted) {
    Work(HeavyRule, [](const RuleEditorHands& editor) {
        MessageBoxes boxes;
        editor.AddRule({{u"lstInA", u"High"}}, u"1");
        ASSERT_EQ(::GetFocus(), editor.Weight());
        editor.ClickRow(0);
        EXPECT_EQ(WindowText(editor.Weight()), u"2");
        editor.Push(RuleEditorHands::CmdDelete);
        EXPECT_TRUE(boxes.Shown.empty());
        EXPECT_EQ(editor.Column(3), (Texts{u"Four", u"Four"}));
    });
}

TEST_F(RuleEditorKeysTest, ABadWeightIsNotLeftForARow) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        MessageBoxes boxes;
        editor.TypeWeight(u"abc");
        editor.ClickRow(0);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Should be a number!");
        EXPECT_EQ(::GetFocus(), editor.Weight());
        EXPECT_EQ(WindowText(editor.Weight()), u"abc");
        EXPECT_EQ(editor.SelectedRow(), 3) << "the row whose terms are shown";
        editor.TypeWeight(u"0.5");
        editor.ClickRow(0);
        EXPECT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(editor.SelectedRow(), 0);
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"Low");
        EXPECT_EQ(WindowText(editor.Weight()), u"1");
    });
}

TEST_F(RuleEditorKeysTest, TheKeyboardComesBackToWhereItWas) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        HWND const window = ::GetParent(editor.Rules());
        ::SetFocus(editor.Weight());
        // The desktop is shown: nothing has the focus when the window hears that it is inactive.
        ::SetFocus(nullptr);
        ::SendMessageW(window, WM_ACTIVATE, WA_INACTIVE, 0);
        ::SendMessageW(window, WM_ACTIVATE, WA_ACTIVE, 0);
        EXPECT_EQ(::GetFocus(), editor.Rules()) << "where it was when it was last known";
        ::SetFocus(editor.Weight());
        ::SendMessageW(window, WM_ACTIVATE, WA_INACTIVE, 0);
        ::SetFocus(nullptr);
        ::SendMessageW(window, WM_ACTIVATE, WA_ACTIVE, 0);
        EXPECT_EQ(::GetFocus(), editor.Weight());
    });
}

TEST_F(RuleEditorKeysTest, CloseLeavesABadWeightBehind) {
    MessageBoxes boxes;
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.TypeWeight(u"abc");
        editor.Push(RuleEditorHands::CmdClose);
    });
    EXPECT_TRUE(boxes.Shown.empty());
}

TEST_F(RuleEditorKeysTest, TheTabKeyGoesFromConditionsToRulesAndRound) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        const HWND stops[] = {
            editor.Find(u"lstInA"),
            editor.Find(u"lstInB"),
            editor.Find(u"lstOutSum"),
            editor.Weight(),
            editor.Part(RuleEditorHands::CmdAdd),
            editor.Part(RuleEditorHands::CmdDelete),
            editor.Part(RuleEditorHands::CmdClose),
            editor.Rules(),
        };
        ::SetFocus(stops[0]);
        for (HWND const stop : stops) {
            EXPECT_EQ(::GetFocus(), stop) << Narrow(WindowText(stop));
            editor.Type(VK_TAB);
        }
        EXPECT_EQ(::GetFocus(), stops[0]);
    });
}

TEST_F(RuleEditorKeysTest, EnterAddsOrPressesTheButtonThatHasTheFocus) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.Choose(u"lstInA", u"[NONE]");
        editor.Type(VK_RETURN);
        EXPECT_EQ(editor.RowCount(), 5) << "in a list box";
        EXPECT_EQ(::GetFocus(), editor.Weight());
        editor.Type(VK_TAB);
        editor.Type(VK_TAB);
        ASSERT_EQ(::GetFocus(), editor.Part(RuleEditorHands::CmdDelete));
        editor.Type(VK_RETURN);
        EXPECT_EQ(editor.RowCount(), 4);
    });
}

TEST_F(RuleEditorKeysTest, TheDeleteKeyDeletesTheSelectedRule) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        editor.Type(VK_DELETE);
        EXPECT_EQ(editor.Column(3), (Texts{u"None", u"Eight", u"Twelve"}));
        EXPECT_EQ(editor.SelectedRow(), 2);
    });
}

TEST_F(RuleEditorKeysTest, AClickOnAHeaderSortsUpAndThenDown) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.ClickRow(0);
        editor.ClickHeader(3);
        EXPECT_EQ(editor.Column(3), (Texts{u"Eight", u"Four", u"None", u"Twelve"}));
        EXPECT_EQ(editor.SelectedRow(), 2) << "the selection stays with its rule";
        editor.ClickHeader(3);
        EXPECT_EQ(editor.Column(3), (Texts{u"Twelve", u"None", u"Four", u"Eight"}));
        EXPECT_EQ(editor.SelectedRow(), 1);
    });
}

/// The column with an arrow in its header, negative where it points down; 0 for none.
int ArrowColumn(const RuleEditorHands& editor) {
    HWND const header = ListView_GetHeader(editor.Rules());
    int found = 0;
    for (int column = 0; column < Header_GetItemCount(header); ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&item));
        if ((item.fmt & (HDF_SORTUP | HDF_SORTDOWN)) != 0) {
            EXPECT_EQ(found, 0) << "one arrow at a time";
            found = (item.fmt & HDF_SORTUP) != 0 ? column + 1 : -column - 1;
        }
    }
    return found;
}

TEST_F(RuleEditorKeysTest, TheFocusComesBackToTheRowOfTheRule) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        // As Ctrl+End leaves it on Windows.
        ListView_SetItemState(editor.Rules(), 3, LVIS_FOCUSED, LVIS_FOCUSED);
        ASSERT_EQ(editor.SelectedRow(), 1);
        editor.ClickHeader(0);
        EXPECT_EQ(editor.SelectedRow(), 1);
        EXPECT_EQ(ListView_GetSelectedCount(editor.Rules()), 1);
        EXPECT_EQ(ListView_GetNextItem(editor.Rules(), -1, LVNI_FOCUSED), 1);
    });
}

TEST_F(RuleEditorKeysTest, ControlAndTheArrowKeysSort) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        editor.ClickRow(0);
        EXPECT_EQ(ArrowColumn(editor), 0);
        const HeldKey held(VK_CONTROL);
        editor.Type(VK_DOWN);
        EXPECT_EQ(editor.Column(0), (Texts{u"4", u"3", u"2", u"1"}));
        EXPECT_EQ(editor.SelectedRow(), 3) << "the selection stays with its rule";
        EXPECT_EQ(ArrowColumn(editor), -1);
        for (int i = 0; i < 3; ++i) {
            editor.Type(VK_RIGHT);
        }
        EXPECT_EQ(editor.Column(3), (Texts{u"Twelve", u"None", u"Four", u"Eight"}));
        EXPECT_EQ(ArrowColumn(editor), -4);
        editor.Type(VK_UP);
        EXPECT_EQ(editor.Column(3), (Texts{u"Eight", u"Four", u"None", u"Twelve"}));
        EXPECT_EQ(ArrowColumn(editor), 4);
        editor.Type(VK_RIGHT);
        editor.Type(VK_RIGHT);
        EXPECT_EQ(ArrowColumn(editor), 5) << "the last column";
        for (int i = 0; i < 9; ++i) {
            editor.Type(VK_LEFT);
        }
        EXPECT_EQ(editor.Column(0), (Texts{u"1", u"2", u"3", u"4"}));
        EXPECT_EQ(ArrowColumn(editor), 1);
        EXPECT_EQ(::GetFocus(), editor.Rules());
    });
}

TEST_F(RuleEditorKeysTest, LabelsCarryTheirNamesBesideTheirCaptions) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        HWND const input = editor.Find(u"A =");
        HWND const output = editor.Find(u"Sum =");
        ASSERT_TRUE(input && output);
        EXPECT_NE(::GetPropW(input, L"lblInA"), nullptr);
        EXPECT_NE(::GetPropW(output, L"lblOutSum"), nullptr);
        EXPECT_EQ(::GetPropW(input, L"lblInB"), nullptr);
    });
}

/// Four inputs of four terms each: more than a low panel shows.
constexpr System FourInputs = {
    u"A/1/0/T0,0,0,0,1;T1,0,0,0,1;T2,0,0,0,1;T3,0,0,0,1|"
    u"B/1/0/T0,0,0,0,1;T1,0,0,0,1;T2,0,0,0,1;T3,0,0,0,1|"
    u"C/1/0/T0,0,0,0,1;T1,0,0,0,1;T2,0,0,0,1;T3,0,0,0,1|"
    u"D/1/0/T0,0,0,0,1;T1,0,0,0,1;T2,0,0,0,1;T3,0,0,0,1",
    u"Y/1/0/P,0",
    u"A>T3;B>T3;C>T3;D>T3/Y<P:1",
};

RECT ScreenArea(HWND window) {
    RECT area{};
    ::GetWindowRect(window, &area);
    return area;
}

void SetHeight(HWND window, int height) {
    ::SetWindowPos(window, nullptr, 50, 50, 760, height, SWP_NOZORDER);
    Pump();
}

/// Presses or releases the real mouse, and waits until the windows have heard of it.
void PressMouse(bool down) {
    ::mouse_event(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    for (int i = 0; i < 200; ++i) {
        Pump();
        if ((::GetKeyState(VK_LBUTTON) < 0) == down) {
            return;
        }
        ::Sleep(10);
    }
    FAIL() << "the mouse was not heard";
}

TEST_F(RuleEditorKeysTest, AClickIntoAListBoxThatIsPartlyHiddenChoosesWhatWasClicked) {
    Work(FourInputs, [](const RuleEditorHands& editor) {
        HWND const window = ::GetParent(editor.Rules());
        int clicked = 0;
        for (int height = 320; height < 520; height += 20) {
            SetHeight(window, height);
            const RECT panel = ScreenArea(editor.Part(RuleEditorHands::PicInput));
            for (const TextView name : {u"lstInA", u"lstInB", u"lstInC", u"lstInD"}) {
                HWND const list = editor.Find(name);
                const RECT area = ScreenArea(list);
                if (area.top + 20 > panel.bottom || area.bottom < panel.bottom) {
                    continue;
                }
                ++clicked;
                ::SetFocus(editor.Rules());
                ::SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
                ::SendMessageW(list, LB_SETTOPINDEX, 0, 0);
                // Never twice at the same place: that would be a double click.
                ::SetCursorPos(area.left + 12 * clicked, area.top + 8);
                Pump();
                PressMouse(true);
                ::mouse_event(MOUSEEVENTF_MOVE, 1, 0, 0, 0);
                ::Sleep(30);
                Pump();
                PressMouse(false);
                EXPECT_EQ(ScreenArea(list).top, area.top) << "height " << height;
                EXPECT_EQ(::SendMessageW(list, LB_GETCURSEL, 0, 0), 0) << "height " << height;
            }
        }
        EXPECT_GT(clicked, 0) << "no list box was partly hidden";
    });
}

TEST_F(RuleEditorKeysTest, AListBoxThatTheKeyboardReachesComesIntoView) {
    Work(FourInputs, [](const RuleEditorHands& editor) {
        SetHeight(::GetParent(editor.Rules()), 320);
        const RECT panel = ScreenArea(editor.Part(RuleEditorHands::PicInput));
        HWND const last = editor.Find(u"lstInD");
        ASSERT_GT(ScreenArea(last).bottom, panel.bottom);
        ::SetFocus(editor.Find(u"lstInC"));
        editor.Type(VK_TAB);
        ASSERT_EQ(::GetFocus(), last);
        EXPECT_LE(ScreenArea(last).bottom, panel.bottom);
        EXPECT_GE(ScreenArea(last).top, panel.top);
    });
}

LONG FontHeight(HWND window) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font,
                 &font);
    return -font.lfHeight;
}

TEST_F(RuleEditorKeysTest, GrowsOnAScreenOfAnotherResolution) {
    Work(TwoInputs, [](const RuleEditorHands& editor) {
        constexpr UINT DpiChanged = 0x02E0;
        HWND const window = ::GetParent(editor.Rules());
        HWND const list = editor.Find(u"lstInB");
        HWND const controls[] = {list, editor.Find(u"A ="), editor.Weight(), editor.Rules(),
                                 editor.Part(RuleEditorHands::CmdAdd)};
        editor.TypeWeight(u"0.");
        for (const UINT dpi : {192U, 96U}) {
            const auto scaled = [dpi](LONG pixels) { return pixels * static_cast<LONG>(dpi) / 96; };
            RECT place{0, 0, scaled(645), scaled(340)};
            ::SendMessageW(window, DpiChanged, MAKEWPARAM(dpi, dpi),
                           reinterpret_cast<LPARAM>(&place));
            Pump();
            const RECT around = ScreenArea(window);
            EXPECT_EQ(around.right - around.left, place.right) << dpi;
            EXPECT_EQ(around.bottom - around.top, place.bottom) << dpi;
            for (HWND const control : controls) {
                EXPECT_EQ(FontHeight(control), ::MulDiv(8, static_cast<int>(dpi), 72))
                    << Narrow(WindowText(control));
            }
            // 1500 twips wide, and a row of 750 twips below the first.
            const RECT area = ScreenArea(list);
            EXPECT_EQ(area.right - area.left, scaled(100));
            EXPECT_EQ(area.top - ScreenArea(editor.Find(u"lstInA")).top, scaled(50));
            EXPECT_LE(ScreenArea(editor.Part(RuleEditorHands::CmdClose)).right, around.right);
        }
        EXPECT_EQ(WindowText(editor.Weight()), u"0.");
        EXPECT_EQ(::GetFocus(), editor.Weight());
        EXPECT_EQ(editor.Chosen(u"lstInB"), u"High");
    });
}

TEST_F(RuleEditorKeysTest, TheScrollBarIsThereWhileTheFrameIsTooLow) {
    Work(FourInputs, [](const RuleEditorHands& editor) {
        HWND const window = ::GetParent(editor.Rules());
        HWND const panel = editor.Part(RuleEditorHands::PicInput);
        HWND const bar = ::FindWindowExW(panel, nullptr, L"ScrollBar", nullptr);
        ASSERT_NE(bar, nullptr);
        // Four inputs are 3120 twips high: 208 pixels at 96 dots per inch.
        const auto innerHeight = [&] {
            RECT area{};
            ::GetClientRect(panel, &area);
            return area.bottom;
        };
        SetHeight(window, 320);
        ASSERT_LT(innerHeight(), 208);
        EXPECT_TRUE(::IsWindowVisible(bar));
        int least = 0;
        int most = 0;
        ::GetScrollRange(bar, SB_CTL, &least, &most);
        EXPECT_EQ(least, 0);
        // The range ends a step behind the last value.
        EXPECT_EQ(most - 749, 3120 - innerHeight() * 15 + 60);
        const LONG top = ScreenArea(editor.Find(u"lstInA")).top;
        ::SendMessageW(panel, WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(bar));
        EXPECT_EQ(ScreenArea(editor.Find(u"lstInA")).top, top - 50);
        SetHeight(window, 700);
        ASSERT_GT(innerHeight(), 208);
        EXPECT_FALSE(::IsWindowVisible(bar));
        EXPECT_EQ(ScreenArea(editor.Find(u"lstInA")).top, top) << "nothing stays scrolled away";
    });
}

} // namespace
} // namespace Quorvane
