// SPDX-License-Identifier: MIT
// Tests of the owners of handles.
#include "win/Handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace Quorvane::Win {
namespace {

/// A kind whose handles are numbers; what was closed is noted.
struct NotedKind {
    using Type = int*;
    static void Close(int* handle) noexcept { Closed.push_back(handle); }
    static inline std::vector<int*> Closed;
};

class HandleTest : public testing::Test {
  protected:
    HandleTest() { NotedKind::Closed.clear(); }
    ~HandleTest() override { EXPECT_EQ(LiveCount<NotedKind>::Get(), 0); }

    int first_ = 0;
    int second_ = 0;
};

using Noted = Handle<NotedKind>;
using Closed = std::vector<int*>;

TEST_F(HandleTest, ClosesWhatItOwnsOnce) {
    {
        const Noted owner(&first_);
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner.Get(), &first_);
        EXPECT_EQ(LiveCount<NotedKind>::Get(), 1);
        EXPECT_TRUE(NotedKind::Closed.empty());
    }
    EXPECT_EQ(NotedKind::Closed, Closed{&first_});
}

TEST_F(HandleTest, OwnsNothingWhereThereIsNoHandle) {
    {
        const Noted empty;
        const Noted null(nullptr);
        EXPECT_FALSE(empty);
        EXPECT_FALSE(null);
        EXPECT_EQ(LiveCount<NotedKind>::Get(), 0);
    }
    EXPECT_TRUE(NotedKind::Closed.empty());
}

TEST_F(HandleTest, ClosesTheFormerHandleWhenAnotherIsMovedIn) {
    Noted owner(&first_);
    owner = Noted(&second_);
    EXPECT_EQ(NotedKind::Closed, Closed{&first_});
    EXPECT_EQ(owner.Get(), &second_);
    EXPECT_EQ(LiveCount<NotedKind>::Get(), 1);
}

TEST_F(HandleTest, LeavesNothingBehindWhereItIsMovedFrom) {
    Noted owner(&first_);
    const Noted taker(std::move(owner));
    // NOLINTNEXTLINE(bugprone-use-after-move): that is what is tested
    EXPECT_FALSE(owner);
    EXPECT_EQ(taker.Get(), &first_);
    EXPECT_TRUE(NotedKind::Closed.empty());
}

TEST_F(HandleTest, KeepsItsHandleWhenMovedToItself) {
    Noted owner(&first_);
    Noted& same = owner;
    owner = std::move(same);
    EXPECT_EQ(owner.Get(), &first_);
    EXPECT_TRUE(NotedKind::Closed.empty());
}

TEST_F(HandleTest, HandsItsHandleOver) {
    Noted owner(&first_);
    EXPECT_EQ(owner.Detach(), &first_);
    EXPECT_FALSE(owner);
    EXPECT_EQ(owner.Detach(), nullptr);
    EXPECT_EQ(LiveCount<NotedKind>::Get(), 0);
    EXPECT_TRUE(NotedKind::Closed.empty());
}

TEST_F(HandleTest, SelectsAnObjectForAsLongAsItLives) {
    const MemoryDc context(::CreateCompatibleDC(nullptr));
    HGDIOBJ const former = ::GetCurrentObject(context.Get(), OBJ_PEN);
    const Pen pen(::CreatePen(PS_SOLID, 3, RGB(1, 2, 3)));
    {
        const Selection selection(context.Get(), pen.Get());
        EXPECT_EQ(::GetCurrentObject(context.Get(), OBJ_PEN), pen.Get());
    }
    EXPECT_EQ(::GetCurrentObject(context.Get(), OBJ_PEN), former);
}

TEST_F(HandleTest, PutsADeviceContextBackAsItWas) {
    const MemoryDc context(::CreateCompatibleDC(nullptr));
    ::SetTextColor(context.Get(), RGB(1, 2, 3));
    {
        const SavedDc saved(context.Get());
        ::SetTextColor(context.Get(), RGB(4, 5, 6));
    }
    EXPECT_EQ(::GetTextColor(context.Get()), COLORREF{RGB(1, 2, 3)});
}

} // namespace
} // namespace Quorvane::Win
