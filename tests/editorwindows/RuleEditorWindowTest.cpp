// SPDX-License-Identifier: MIT
// The rule editor's window, worked with mouse and keyboard, and a whole design.
#include <atomic>
#include <optional>
#include <thread>

#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

TEST_F(PageTest, RuleEditorListsTheRulesAndShowsTheLast) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const RuleEditorHands editor(window);
        EXPECT_EQ(WindowText(window), u"Rule Base");
        EXPECT_FALSE(::IsWindowEnabled(frame_));
        EXPECT_EQ(editor.RowCount(), 4);
        EXPECT_EQ(editor.Row(1, 5), (Texts{u"2", u"Low", u"High", u"Four", u"1"}));
        EXPECT_EQ(editor.SelectedRow(), 3);
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"High");
        EXPECT_EQ(editor.Chosen(u"lstOutSum"), u"Twelve");
        EXPECT_EQ(WindowText(editor.Weight()), u"1");
        EXPECT_TRUE(::IsWindowEnabled(editor.Part(RuleEditorHands::CmdDelete)));
        editor.Escape();
    });
    EXPECT_TRUE(::IsWindowEnabled(frame_));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, RuleEditorAddsReweighsAndDeletes) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const RuleEditorHands editor(window);
        editor.AddRule({{u"lstInA", u"[NONE]"}, {u"lstInB", u"Low"}, {u"lstOutSum", u"None"}},
                       u"0.50");
        EXPECT_EQ(editor.Row(4, 5), (Texts{u"5", u"[NONE]", u"Low", u"None", u"0.5"}));
        EXPECT_EQ(editor.SelectedRow(), 4);
        // The same rule again changes its weight.
        editor.TypeWeight(u"0.25");
        EXPECT_FALSE(::IsWindowEnabled(editor.Part(RuleEditorHands::CmdDelete)));
        editor.Push(RuleEditorHands::CmdAdd);
        EXPECT_EQ(editor.RowCount(), 5);
        EXPECT_EQ(editor.Cell(4, 4), u"0.25");
        editor.ClickRow(0);
        EXPECT_EQ(editor.Chosen(u"lstInB"), u"Low");
        EXPECT_EQ(editor.Chosen(u"lstInA"), u"Low");
        editor.Push(RuleEditorHands::CmdDelete);
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
        const RuleEditorHands editor(window);
        MessageBoxes boxes;
        editor.TypeWeight(u"1.5");
        editor.Push(RuleEditorHands::CmdAdd);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Enter a number less than 1!");
        EXPECT_EQ(boxes.Shown[0].Owner, window);
        EXPECT_EQ(::GetFocus(), editor.Weight());
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

/// Sends a message to a window of this thread from another one, once this one waits for messages.
class OtherThread {
  public:
    OtherThread(HWND window, UINT message)
        : thread_([this, window, message, self = ::GetCurrentThreadId()] {
              ::Sleep(100);
              ::SendMessageW(window, message, 0, 0);
              for (int i = 0; i < 200 && !hasEnded_; ++i) {
                  ::Sleep(10);
              }
              hasHung_ = !hasEnded_;
              ::PostThreadMessageW(self, WM_NULL, 0, 0);
          }) {}
    ~OtherThread() { thread_.join(); }
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

    /// Whether what the message is to end has ended by it alone.
    bool Ended() {
        hasEnded_ = true;
        return !hasHung_;
    }

  private:
    std::atomic<bool> hasEnded_ = false;
    std::atomic<bool> hasHung_ = false;
    std::thread thread_;
};

TEST_F(PageTest, RuleEditorLeavesAtOnceWhenAnotherThreadClosesIt) {
    const Placed control = Design(TwoInputs);
    for (const bool closesFrame : {false, true}) {
        Open({control.Control.Get()});
        std::optional<OtherThread> other;
        InRuleEditor([&](HWND window) {
            other.emplace(closesFrame ? std::exchange(frame_, nullptr) : window, WM_CLOSE);
        });
        EXPECT_TRUE(other->Ended()) << (closesFrame ? "the frame" : "the editor");
        EXPECT_EQ(::FindWindowW(L"QuorvaneRuleEditor", nullptr), nullptr);
        Close();
    }
}

TEST_F(PageTest, RuleEditorLeavesWithAPageThatIsReleased) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND) {
        page_->Show(SW_HIDE);
        page_->Deactivate();
        page_->SetObjects(0, nullptr);
        page_->SetPageSite(nullptr);
        page_.Reset();
        site_.Reset();
        ::DestroyWindow(std::exchange(frame_, nullptr));
    });
    EXPECT_EQ(::FindWindowW(L"QuorvaneRuleEditor", nullptr), nullptr);
}

TEST_F(PageTest, RuleEditorLeavesWithItsProgram) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND) { ::PostQuitMessage(7); });
    EXPECT_EQ(::FindWindowW(L"QuorvaneRuleEditor", nullptr), nullptr);
    EXPECT_EQ(TakeQuit(), 7) << "the program's own loop ends, too";
    EXPECT_TRUE(::IsWindowEnabled(frame_));
}

TEST_F(PageTest, RuleEditorSaysSoWhenTheModelHasGone) {
    Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    InRuleEditor([&](HWND window) {
        const RuleEditorHands editor(window);
        page_->SetObjects(0, nullptr);
        control = {};
        MessageBoxes boxes;
        editor.Push(RuleEditorHands::CmdDelete);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_EQ(boxes.Shown[0].Message, u"Object variable not set (91)");
        EXPECT_EQ(boxes.Shown[0].Title, u"Quorvane Inference System");
        EXPECT_EQ(boxes.Shown[0].Owner, window);
        EXPECT_EQ(editor.RowCount(), 4);
        editor.Escape();
    });
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, RuleEditorIsModalToAllWindowsOfTheThread) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    const auto make = [](DWORD style) {
        return ::CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | style, 0, 0, 90, 90,
                                 nullptr, nullptr, nullptr, nullptr);
    };
    HWND const other = make(WS_VISIBLE);
    HWND const waiting = make(WS_VISIBLE | WS_DISABLED);
    HWND const passing = make(WS_VISIBLE);
    InRuleEditor([&](HWND window) {
        EXPECT_TRUE(::IsWindowEnabled(window));
        EXPECT_FALSE(::IsWindowEnabled(frame_));
        EXPECT_FALSE(::IsWindowEnabled(other));
        ::DestroyWindow(passing);
        RuleEditorHands(window).Escape();
    });
    EXPECT_TRUE(::IsWindowEnabled(frame_));
    EXPECT_TRUE(::IsWindowEnabled(other));
    EXPECT_FALSE(::IsWindowEnabled(waiting)) << "as it was before";
    ::DestroyWindow(other);
    ::DestroyWindow(waiting);
}

TEST_F(PageTest, RuleEditorOpensOnTheScreenWhereverItsFrameIs) {
    const Placed control = Design(TwoInputs);
    Open({control.Control.Get()});
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const POINT corners[] = {{work.right - 100, work.bottom - 100}, {-300, -200}};
    for (const POINT& corner : corners) {
        ::SetWindowPos(frame_, nullptr, corner.x, corner.y, 600, 500, SWP_NOZORDER);
        InRuleEditor([&](HWND window) {
            RECT place{};
            RECT seen{};
            ::GetWindowRect(window, &place);
            ::IntersectRect(&seen, &place, &work);
            EXPECT_TRUE(::EqualRect(&seen, &place))
                << place.left << ',' << place.top << ' ' << place.right << ',' << place.bottom;
            RuleEditorHands(window).Escape();
        });
    }
}

TEST_F(PageTest, ASystemIsRedesignedSavedLoadedAndFired) {
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
        const RuleEditorHands editor(window);
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
