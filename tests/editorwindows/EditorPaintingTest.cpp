// SPDX-License-Identifier: MIT
// What the screen shows of the editors after they have been resized, by pixels: the same as of
// fresh ones.
#include <gtest/gtest.h>

#include <cstdio>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"
#include "tests/editorwindows/ScreenPicture.h"

namespace Quorvane {
namespace {

class EditorPaintingTest : public PageTest {
  protected:
    /// The mouse rests where it marks nothing, also in a maximized window.
    EditorPaintingTest() { ::SetCursorPos(0, 0); }
};

void SetSize(HWND window, SIZE size) {
    ::SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Pump();
}

/// Larger and smaller, in one direction and in both, by much and by little.
constexpr SIZE EditorSizes[] = {{900, 700}, {620, 420}, {621, 421},  {1100, 430},
                                {640, 800}, {610, 330}, {1000, 800}, {800, 500}};

TEST_F(EditorPaintingTest, AResizedRuleEditorLooksLikeAFreshOne) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    std::vector<ScreenPicture> resized;
    InRuleEditor([&](HWND window) {
        for (const SIZE& size : EditorSizes) {
            SetSize(window, size);
            resized.push_back(ScreenPicture::Of(window));
            EXPECT_EQ(resized.back().DifferenceFrom(ScreenPicture::OfRepainted(window)), "")
                << size.cx << 'x' << size.cy;
        }
        RuleEditorHands(window).Escape();
    });
    for (std::size_t i = 0; i < resized.size(); ++i) {
        InRuleEditor([&](HWND window) {
            SetSize(window, EditorSizes[i]);
            EXPECT_EQ(resized[i].DifferenceFrom(ScreenPicture::OfRepainted(window)), "")
                << EditorSizes[i].cx << 'x' << EditorSizes[i].cy;
            RuleEditorHands(window).Escape();
        });
    }
}

TEST_F(EditorPaintingTest, AMaximizedAndARestoredRuleEditorLookLikeFreshOnes) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const ScreenPicture before = ScreenPicture::OfRepainted(window);
        for (int i = 0; i < 2; ++i) {
            ::ShowWindow(window, SW_MAXIMIZE);
            const ScreenPicture maximized = ScreenPicture::Of(window);
            EXPECT_GT(maximized.Width, before.Width);
            EXPECT_EQ(maximized.DifferenceFrom(ScreenPicture::OfRepainted(window)), "");
            ::ShowWindow(window, SW_RESTORE);
            EXPECT_EQ(ScreenPicture::Of(window).DifferenceFrom(before), "");
        }
        RuleEditorHands(window).Escape();
    });
}

TEST_F(EditorPaintingTest, APartThatAnotherWindowCoveredIsPaintedAnew) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const ScreenPicture before = ScreenPicture::OfRepainted(window);
        RECT place{};
        ::GetWindowRect(window, &place);
        HWND const cover = ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"",
                                             WS_POPUP | WS_VISIBLE, place.left + 60, place.top + 80,
                                             400, 200, nullptr, nullptr, nullptr, nullptr);
        ScreenPicture::Of(window);
        ::DestroyWindow(cover);
        EXPECT_EQ(ScreenPicture::Of(window).DifferenceFrom(before), "");
        RuleEditorHands(window).Escape();
    });
}

/// Expects that a window shows what it shows when all of it is painted anew.
void ExpectPainted(HWND window, const char* after) {
    const ScreenPicture picture = ScreenPicture::Of(window);
    EXPECT_EQ(picture.DifferenceFrom(ScreenPicture::OfRepainted(window)), "") << after;
}

/// Inputs of five terms, more than the panel shows.
Text SixInputs() {
    Text inputs;
    for (const char16_t name : TextView(u"ABCDEF")) {
        inputs += Text(1, name) + u"/8/0/T0,0,1,2,3;T1,0,1,2,3;T2,0,1,2,3;T3,0,1,2,3;T4,0,1,2,3|";
    }
    inputs.pop_back();
    return inputs;
}

/// Rules, more than the list shows.
Text SixtyRules() {
    Text rules;
    for (int i = 0; i < 60; ++i) {
        char rule[96];
        std::snprintf(rule, sizeof rule, "A>T%d;B>T%d;C>T%d;D>T0;E>T0;F>[NONE]/Y<P:1|", i % 5,
                      i / 5 % 5, i / 25);
        rules += Widen(rule);
    }
    rules.pop_back();
    return rules;
}

TEST_F(EditorPaintingTest, WhatIsDoneInTheRuleEditorIsPaintedWhole) {
    const Text inputs = SixInputs();
    const Text rules = SixtyRules();
    const Placed control = Design({inputs, u"Y/1/0/P,0.5", rules});
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const RuleEditorHands editor(window);
        HWND const list = editor.Rules();
        ExpectPainted(window, "opening");
        HWND const panel = editor.Part(RuleEditorHands::PicInput);
        for (const int code : {SB_LINEDOWN, SB_LINEDOWN, SB_BOTTOM, SB_LINEUP}) {
            ::SendMessageW(panel, WM_VSCROLL, static_cast<WPARAM>(code), 0);
        }
        ExpectPainted(window, "scrolling the panel");
        ListView_Scroll(list, 0, -300);
        ListView_Scroll(list, 60, 40);
        ExpectPainted(window, "scrolling the list");
        editor.ClickHeader(2);
        ExpectPainted(window, "sorting");
        ListView_EnsureVisible(list, 0, FALSE);
        editor.ClickRow(1);
        ExpectPainted(window, "selecting");
        editor.TypeWeight(u"0.5");
        editor.Push(RuleEditorHands::CmdAdd);
        // The caret in the weight blinks.
        ::SetFocus(list);
        ExpectPainted(window, "a new weight");
        editor.Push(RuleEditorHands::CmdDelete);
        ::SetFocus(list);
        ExpectPainted(window, "deleting");
        SetSize(window, {700, 600});
        ExpectPainted(window, "another size");
        ::SetFocus(editor.Part(RuleEditorHands::CmdClose));
        ExpectPainted(window, "the focus elsewhere");
        editor.Escape();
    });
}

TEST_F(EditorPaintingTest, WhatIsDoneOnThePageIsPaintedWhole) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    HWND const page = ::GetParent(Tree(true));
    HWND const tree = Tree(true);
    Click(tree, Item(tree, {u"X"}));
    ExpectPainted(page, "a click");
    TreeView_Expand(tree, Item(tree, {u"X"}), TVE_EXPAND);
    ExpectPainted(page, "expanding");
    Push(Button(u"Add Term"));
    ExpectPainted(page, "a new term");
    Press(tree, VK_DELETE);
    ExpectPainted(page, "deleting it");
    Click(tree, Item(tree, {u"X", u"High"}));
    EditLabel(tree, u"Top");
    ExpectPainted(page, "a new name");
    TreeView_Expand(tree, Item(tree, {u"X"}), TVE_COLLAPSE);
    ExpectPainted(page, "collapsing");
    Click(Tree(false), Item(Tree(false), {u"Y"}));
    ExpectPainted(page, "the other tree");
    Press(Tree(false), VK_TAB);
    ExpectPainted(page, "a button");
}

TEST_F(EditorPaintingTest, AResizedPageLooksLikeAFreshOne) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    ::SetWindowPos(frame_, nullptr, 0, 0, 900, 900, SWP_NOMOVE | SWP_NOZORDER);
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    constexpr RECT Places[] = {{10, 10, 810, 780}, {10, 10, 390, 370}, {10, 10, 391, 371},
                               {10, 10, 700, 360}, {10, 10, 400, 800}, {10, 10, 300, 300},
                               {30, 20, 330, 320}, {10, 10, 410, 380}};
    for (const RECT& place : Places) {
        ASSERT_EQ(page_->Move(&place), S_OK);
        HWND const page = ::GetParent(Tree(true));
        const ScreenPicture moved = ScreenPicture::Of(page);
        EXPECT_EQ(moved.DifferenceFrom(ScreenPicture::OfRepainted(page)), "")
            << place.right << 'x' << place.bottom;
        ASSERT_EQ(page_->Deactivate(), S_OK);
        ASSERT_EQ(page_->Activate(frame_, &place, FALSE), S_OK);
        ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
        Press(Tree(true), VK_TAB);
        EXPECT_EQ(ScreenPicture::OfRepainted(::GetParent(Tree(true))).DifferenceFrom(moved), "")
            << place.right << 'x' << place.bottom;
    }
}

} // namespace
} // namespace Quorvane
