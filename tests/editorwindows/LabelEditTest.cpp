// SPDX-License-Identifier: MIT
// The ends of label edits in the real trees: by focus loss, by Apply, and with the page's own end.
#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

ULONG ReferencesOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

/// A page with an open edit of the input variable X.
class LabelEditTest : public PageTest {
  protected:
    /// Opens the page and types a name for the variable.
    void Type(TextView name) {
        control_ = Design(TwoOutputs);
        Open({control_.Control.Get()});
        Click(Tree(true), Item(Tree(true), {u"X"}));
        Press(Tree(true), VK_F2);
        HWND const field = TreeView_GetEditControl(Tree(true));
        ASSERT_NE(field, nullptr);
        ::SetWindowTextW(field, Com::Wide(Text(name)));
    }

    Texts Inputs() const { return ChildTexts(Tree(true), Item(Tree(true), {})); }

    void TearDown() override {
        Close();
        control_ = {};
        PageTest::TearDown();
    }

    Placed control_;
};

TEST_F(LabelEditTest, FocusLossAcceptsAnEdit) {
    Type(u"Level");
    ::SetFocus(Button(u"Rule Editor..."));
    Pump();
    EXPECT_EQ(Inputs(), (Texts{u"Level"}));
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
}

TEST_F(LabelEditTest, FocusLossRefusesAnEditOnceAndRestoresTheLabel) {
    Type(u"9x");
    MessageBoxes boxes;
    ::SetFocus(Button(u"Rule Editor..."));
    EXPECT_TRUE(boxes.Shown.empty()) << "the tree has not ended its edit yet";
    Pump();
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"The identiier cannot begin with a digit!");
    EXPECT_EQ(Inputs(), (Texts{u"X"}));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(LabelEditTest, AClickInTheOtherTreeAcceptsAnEdit) {
    Type(u"Level");
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    EXPECT_EQ(Inputs(), (Texts{u"Level"}));
    EXPECT_EQ(ButtonCaptions()[2], u"Delete Variable");
}

TEST_F(LabelEditTest, HidingThePageAcceptsAnEdit) {
    Type(u"Level");
    EXPECT_EQ(page_->Show(SW_HIDE), S_OK);
    Pump();
    EXPECT_EQ(Inputs(), (Texts{u"Level"}));
}

TEST_F(LabelEditTest, ApplyEndsWithARefusedEditSoThatTheFrameStaysOpen) {
    Type(u"9x");
    const Text inputs = GetText(*control_, &_FISControl::get_Inputs);
    MessageBoxes boxes;
    EXPECT_TRUE(FAILED(page_->Apply()));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(GetText(*control_, &_FISControl::get_Inputs), inputs);
    // The label is restored; the next Apply has nothing against it.
    EXPECT_EQ(Inputs(), (Texts{u"X"}));
    EXPECT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(boxes.Shown.size(), 1U);
}

TEST_F(LabelEditTest, ApplyComesNotBeforeTheMessageOfAnEditThatFocusLossEnded) {
    Type(u"9x");
    MessageBoxes boxes;
    ::SetFocus(Button(u"Rule Editor..."));
    EXPECT_TRUE(FAILED(page_->Apply()));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"The identiier cannot begin with a digit!");
    Pump();
    EXPECT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(page_->Apply(), S_OK);
}

TEST_F(LabelEditTest, AFrameThatIsDestroyedDropsARefusedEditWithoutAMessage) {
    Type(u"9x");
    MessageBoxes boxes;
    ::DestroyWindow(std::exchange(frame_, nullptr));
    Pump();
    EXPECT_TRUE(boxes.Shown.empty());
}

TEST_F(LabelEditTest, APageThatIsReleasedDuringItsMessageLivesUntilItsCallHasEnded) {
    Type(u"9x");
    HWND const button = Button(u"Rule Editor...");
    IUnknown* const control = control_.Control.Get();
    const ULONG held = ReferencesOf(control);
    MessageBoxes boxes([&] {
        page_->Show(SW_HIDE);
        page_->Deactivate();
        page_->SetPageSite(nullptr);
        site_.Reset();
        page_.Reset();
        ::DestroyWindow(std::exchange(frame_, nullptr));
        EXPECT_EQ(ReferencesOf(control), held) << "the page has let go of its control";
    });
    ::SetFocus(button);
    Pump();
    EXPECT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(ReferencesOf(control), held - 1) << "the page has not ended";
}

} // namespace
} // namespace Quorvane
