// SPDX-License-Identifier: MIT
// Tests of modality.
#include "win/ModalScope.h"

#include <gtest/gtest.h>

#include "win/Window.h"

namespace Quorvane::Win {
namespace {

ChildWindow MakeTopLevel(DWORD style = WS_VISIBLE) {
    return ChildWindow(
        MakeWindow(nullptr, L"STATIC", {.Position = {0, 0, 50, 50}, .Style = WS_POPUP | style}));
}

TEST(ModalScopeTest, LetsNothingButTheModalWindowBeWorked) {
    const ChildWindow form = MakeTopLevel();
    const ChildWindow toolbox = MakeTopLevel();
    const ChildWindow modal = MakeTopLevel();
    {
        const ModalScope scope(modal.Get());
        EXPECT_FALSE(::IsWindowEnabled(form.Get()));
        EXPECT_FALSE(::IsWindowEnabled(toolbox.Get()));
        EXPECT_TRUE(::IsWindowEnabled(modal.Get()));
    }
    EXPECT_TRUE(::IsWindowEnabled(form.Get()));
    EXPECT_TRUE(::IsWindowEnabled(toolbox.Get()));
}

TEST(ModalScopeTest, LeavesWindowsThatWaitAlready) {
    const ChildWindow waiting = MakeTopLevel(WS_VISIBLE | WS_DISABLED);
    const ChildWindow hidden = MakeTopLevel(0);
    const ChildWindow modal = MakeTopLevel();
    {
        const ModalScope scope(modal.Get());
        EXPECT_TRUE(::IsWindowEnabled(hidden.Get()));
    }
    EXPECT_FALSE(::IsWindowEnabled(waiting.Get()));
    EXPECT_TRUE(::IsWindowEnabled(hidden.Get()));
}

TEST(ModalScopeTest, NestsAndEndsInTurn) {
    const ChildWindow form = MakeTopLevel();
    const ChildWindow dialog = MakeTopLevel();
    const ChildWindow question = MakeTopLevel();
    const ModalScope outer(dialog.Get());
    {
        // What is asked from the dialog waits for the question; the form waits for the dialog
        // still.
        const ModalScope inner(question.Get());
        EXPECT_FALSE(::IsWindowEnabled(dialog.Get()));
    }
    EXPECT_TRUE(::IsWindowEnabled(dialog.Get()));
    EXPECT_FALSE(::IsWindowEnabled(form.Get()));
}

TEST(ModalScopeTest, PassesOverWindowsThatHaveGoneMeanwhile) {
    ChildWindow form = MakeTopLevel();
    const ChildWindow other = MakeTopLevel();
    const ChildWindow modal = MakeTopLevel();
    {
        const ModalScope scope(modal.Get());
        form.Reset();
    }
    EXPECT_TRUE(::IsWindowEnabled(other.Get()));
}

} // namespace
} // namespace Quorvane::Win
