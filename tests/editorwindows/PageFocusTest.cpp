// SPDX-License-Identifier: MIT
// The page's buttons act on the tree that the user is in; what is looked for comes into view.
#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/editorwindows/HoverTips.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

class PageFocusTest : public PageTest {
  protected:
    void ClickEmptyRoom(bool input) {
        RECT area{};
        ::GetClientRect(Tree(input), &area);
        ClickAt(Tree(input), {area.right - 5, area.bottom - 5});
        ASSERT_EQ(::GetFocus(), Tree(input));
    }

    /// The place of a node's label.
    static RECT LabelOf(HWND tree, HTREEITEM item) {
        RECT area{};
        *reinterpret_cast<HTREEITEM*>(&area) = item;
        const bool isSeen =
            ::SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)) != 0;
        return isSeen ? area : RECT{};
    }

    static bool IsInView(HWND tree, HTREEITEM item) {
        RECT room{};
        ::GetClientRect(tree, &room);
        const RECT area = LabelOf(tree, item);
        return area.bottom > area.top && area.top >= 0 && area.bottom <= room.bottom;
    }

    Text TipOf(bool input, std::initializer_list<TextView> path) {
        HWND const tree = Tree(input);
        HTREEITEM const item = Item(tree, path);
        TreeView_EnsureVisible(tree, item);
        const RECT area = LabelOf(tree, item);
        return TipAt(tree, {area.left + 4, (area.top + area.bottom) / 2});
    }
};

TEST_F(PageFocusTest, TheButtonsActOnTheTreeWhoseEmptyRoomWasClicked) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    ClickEmptyRoom(false);
    EXPECT_EQ(ButtonCaptions(),
              (Texts{u"Add Term", u"Modify Variable", u"Delete Variable", u"Rule Editor..."}));
    MessageBoxes boxes(AnswerYes);
    Push(Button(u"Delete Variable"));
    EXPECT_EQ(ChildTexts(Tree(false), Item(Tree(false), {})), (Texts{u"Y"}));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})),
              (Texts{u"128", u"-128", u"Low", u"High"}));
}

TEST_F(PageFocusTest, TheButtonsActOnTheTreeThatTheTabKeyEntered) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    EXPECT_EQ(ButtonCaptions()[2], u"Delete Term");
    Press(Tree(true), VK_TAB);
    ASSERT_EQ(::GetFocus(), Tree(false));
    EXPECT_EQ(ButtonCaptions()[2], u"Delete Variable");
    Click(Tree(true), Item(Tree(true), {u"X", u"Low"}));
    EXPECT_EQ(ButtonCaptions()[2], u"Delete Term");
}

TEST_F(PageFocusTest, EnteringATreeIsNoClickBeforeTheFirst) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    ClickEmptyRoom(false);
    ClickEmptyRoom(true);
    Press(Tree(true), VK_TAB);
    EXPECT_EQ(ButtonCaptions(),
              (Texts{u"-Add Variable", u"-Modify", u"-Delete", u"Rule Editor..."}));
}

TEST_F(PageFocusTest, ANewTermComesIntoViewWithItsPoints) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    HWND const tree = Tree(true);
    Click(tree, Item(tree, {u"X"}));
    for (const TextView name : {u"MF_1", u"MF_2"}) {
        Push(Button(u"Add Term"));
        HTREEITEM const term = Item(tree, {u"X", name});
        EXPECT_TRUE(IsInView(tree, term)) << Narrow(name);
        HTREEITEM point = TreeView_GetChild(tree, term);
        ASSERT_NE(point, nullptr);
        for (; point; point = TreeView_GetNextSibling(tree, point)) {
            EXPECT_TRUE(IsInView(tree, point)) << Narrow(name);
        }
        Click(tree, Item(tree, {u"X"}));
    }
}

TEST_F(PageFocusTest, F2AndEnterWithoutAChangeLeaveThePageClean) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    for (const auto& path : {std::initializer_list<TextView>{u"X"},
                             {u"X", u"128"},
                             {u"X", u"Low"},
                             {u"X", u"Low", u"-128"}}) {
        Click(Tree(true), Item(Tree(true), path));
        Press(Tree(true), VK_F2);
        HWND const field = TreeView_GetEditControl(Tree(true));
        ASSERT_NE(field, nullptr);
        Press(field, VK_RETURN);
        EXPECT_EQ(TreeView_GetEditControl(Tree(true)), nullptr);
    }
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
    EXPECT_EQ(site_->DirtyReports, 0);
}

TEST_F(PageFocusTest, PointsAndBoundsTellTheNumbersThatTheyMayBeGiven) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    EXPECT_EQ(TipOf(true, {u"A", u"2"}), u"2 ...");
    EXPECT_EQ(TipOf(true, {u"A", u"High", u"0"}), u"0 ... 2");
    EXPECT_EQ(TipOf(true, {u"A", u"High"}), u"");
    EXPECT_EQ(TipOf(false, {u"Sum", u"Eight", u"8"}), u"0 ... 12");
    EXPECT_EQ(TipOf(false, {u"Sum", u"0"}), u"... 0");
}

} // namespace
} // namespace Quorvane
