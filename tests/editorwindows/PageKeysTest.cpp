// SPDX-License-Identifier: MIT
// The property page worked by keyboard alone.
#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/com/support/HeldKey.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

TEST_F(PageTest, AKeyActsOnTheTreeThatItIsTypedIn) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    Press(Tree(true), VK_TAB);
    ASSERT_EQ(::GetFocus(), Tree(false));
    // The selected node there is the root, which cannot be deleted.
    Press(Tree(false), VK_DELETE);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})),
              (Texts{u"128", u"-128", u"Low", u"High"}));
    EXPECT_EQ(ButtonCaptions(),
              (Texts{u"Add Variable", u"-Modify", u"-Delete", u"Rule Editor..."}));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, AKeyActsOnTheTreeWhoseEmptyRoomWasClicked) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    RECT area{};
    ::GetClientRect(Tree(false), &area);
    ClickAt(Tree(false), {area.right - 5, area.bottom - 5});
    ASSERT_EQ(::GetFocus(), Tree(false));
    Press(Tree(false), VK_F2);
    EXPECT_EQ(TreeView_GetEditControl(Tree(true)), nullptr);
    HWND const field = TreeView_GetEditControl(Tree(false));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(WindowText(field), u"Z");
    Press(field, VK_ESCAPE);
}

TEST_F(PageTest, KeysWithAModifierAreNoCommands) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    for (const int modifier : {VK_SHIFT, VK_CONTROL}) {
        const HeldKey held(modifier);
        for (const WPARAM key : {VK_DELETE, VK_INSERT, VK_F2}) {
            Press(Tree(true), key);
        }
    }
    EXPECT_EQ(TreeView_GetEditControl(Tree(true)), nullptr);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})),
              (Texts{u"128", u"-128", u"Low", u"High"}));
}

TEST_F(PageTest, CommandKeysWaitForTheFirstClickAsTheButtonsDo) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    MessageBoxes boxes;
    for (const bool input : {true, false}) {
        ::SetFocus(Tree(input));
        for (const WPARAM key : {VK_INSERT, VK_DELETE, VK_F2}) {
            Press(Tree(input), key);
        }
    }
    EXPECT_TRUE(boxes.Shown.empty());
    EXPECT_EQ(ButtonCaptions(),
              (Texts{u"-Add Variable", u"-Modify", u"-Delete", u"Rule Editor..."}));
}

TEST_F(PageTest, ARootThatIsTheOnlyNodeIsReachedByKeyboard) {
    for (const WPARAM key : {VK_DOWN, VK_UP, VK_HOME, VK_SPACE}) {
        const Placed control = Design({TwoOutputs.Inputs, u"", u""});
        Open({control.Control.Get()});
        Press(Tree(true), VK_TAB);
        ASSERT_EQ(::GetFocus(), Tree(false));
        Press(Tree(false), key);
        EXPECT_EQ(ButtonCaptions()[0], u"Add Variable") << key;
        Press(Tree(false), VK_INSERT);
        EXPECT_EQ(ChildTexts(Tree(false), Item(Tree(false), {})), (Texts{u"Output_1"})) << key;
        Close();
    }
}

TEST_F(PageTest, TheFocusStaysOnTheSideWhoseButtonWasPressed) {
    for (const bool input : {true, false}) {
        const Placed control = Design(TwoOutputs);
        Open({control.Control.Get()});
        Click(Tree(input), Item(Tree(input), {input ? u"X" : u"Z"}));
        HWND const add = Button(u"Add Term");
        ::SetFocus(add);
        Push(add);
        // The new node is a term, below which there is nothing to add.
        EXPECT_FALSE(::IsWindowEnabled(add));
        EXPECT_EQ(::GetFocus(), Tree(input));
        Close();
    }
}

TEST_F(PageTest, EnterPressesTheButtonThatHasTheFocus) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    Press(Tree(false), VK_TAB);
    ASSERT_EQ(::GetFocus(), Button(u"Add Term"));
    EXPECT_EQ(Translate(::GetFocus(), WM_KEYDOWN, VK_RETURN), S_OK);
    EXPECT_EQ(ChildTexts(Tree(false), Item(Tree(false), {u"Z"})).back(), u"MF_1");
    // In a tree, Enter is the frame's.
    EXPECT_EQ(Translate(Tree(false), WM_KEYDOWN, VK_RETURN), S_FALSE);
}

TEST_F(PageTest, TheTabKeyGoesThroughThePageAndLeavesItAtBothEnds) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    const HWND stops[] = {Tree(true),
                          Tree(false),
                          Button(u"Add Term"),
                          Button(u"Modify Variable"),
                          Button(u"Delete Variable"),
                          Button(u"Rule Editor...")};
    ::SetFocus(stops[0]);
    for (HWND const stop : stops) {
        EXPECT_EQ(::GetFocus(), stop) << Narrow(WindowText(stop));
        const HRESULT taken = Translate(::GetFocus(), WM_KEYDOWN, VK_TAB);
        EXPECT_EQ(taken, stop == stops[5] ? S_FALSE : S_OK);
    }
    const HeldKey shift(VK_SHIFT);
    for (int i = 5; i >= 0; --i) {
        EXPECT_EQ(::GetFocus(), stops[i]) << i;
        EXPECT_EQ(Translate(::GetFocus(), WM_KEYDOWN, VK_TAB), i == 0 ? S_FALSE : S_OK);
    }
}

TEST_F(PageTest, NoButtonOfThePageStaysTheDefaultOneOnceTheFocusHasLeftIt) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    HWND const ok = ::CreateWindowExW(0, L"BUTTON", L"OK", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 420,
                                      10, 80, 24, frame_, nullptr, nullptr, nullptr);
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    HWND const page = ::GetParent(Tree(false));
    for (int i = 0; i < 6; ++i) {
        if (Translate(::GetFocus(), WM_KEYDOWN, VK_TAB) == S_FALSE) {
            ::SetFocus(ok);
        }
        for (HWND child = ::GetWindow(page, GW_CHILD); child;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            const auto code = ::SendMessageW(child, WM_GETDLGCODE, 0, 0);
            EXPECT_TRUE(child == ::GetFocus() || (code & DLGC_DEFPUSHBUTTON) == 0)
                << i << ' ' << Narrow(WindowText(child));
        }
    }
    EXPECT_EQ(::GetFocus(), ok);
}

TEST_F(PageTest, ControlTabIsTheFramesToChangeThePage) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    ::SetFocus(Tree(true));
    const HeldKey held(VK_CONTROL);
    EXPECT_EQ(Translate(Tree(true), WM_KEYDOWN, VK_TAB), S_FALSE);
    EXPECT_EQ(::GetFocus(), Tree(true));
}

TEST_F(PageTest, MnemonicsAreTheFramesAlsoWhileALabelIsEdited) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EXPECT_EQ(Translate(Tree(true), WM_SYSCHAR, 'a'), S_FALSE);
    Press(Tree(true), VK_F2);
    HWND const field = TreeView_GetEditControl(Tree(true));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(Translate(field, WM_SYSKEYDOWN, 'A'), S_FALSE);
    EXPECT_EQ(Translate(field, WM_SYSCHAR, 'a'), S_FALSE);
    Press(field, VK_ESCAPE);
}

} // namespace
} // namespace Quorvane
