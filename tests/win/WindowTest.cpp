// SPDX-License-Identifier: MIT
// Tests of the base of windows with a procedure of their own.
#include "win/Window.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <system_error>
#include <vector>

namespace Quorvane::Win {
namespace {

constexpr UINT Asked = WM_APP + 1;
constexpr UINT Failing = WM_APP + 2;

HINSTANCE Program() {
    return ::GetModuleHandleW(nullptr);
}

class TestWindow : public Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneTestWindow";

    explicit TestWindow(const WindowPlace& place = {.Style = WS_POPUP}) {
        Make<TestWindow>(Program(), place);
    }
    ~TestWindow() override { Destroy(); }

    std::vector<UINT> Messages;

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override {
        Messages.push_back(message);
        switch (message) {
        case Asked:
            return 7;
        case Failing:
            throw std::runtime_error("fails");
        default:
            return Window::OnMessage(message, first, second);
        }
    }
};

bool IsClassRegistered() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    return ::GetClassInfoExW(Program(), TestWindow::ClassName, &description) != FALSE;
}

class WindowTest : public testing::Test {
  protected:
    ~WindowTest() override { EXPECT_EQ(LiveCount<WindowKind>::Get(), before_); }

  private:
    LONG before_ = LiveCount<WindowKind>::Get();
};

TEST_F(WindowTest, HandlesItsMessages) {
    const TestWindow window;
    EXPECT_EQ(::SendMessageW(window.Get(), Asked, 0, 0), 7);
    ASSERT_FALSE(window.Messages.empty());
    EXPECT_EQ(window.Messages.back(), Asked);
}

TEST_F(WindowTest, DestroysItsWindowWithItself) {
    HWND handle = nullptr;
    {
        const TestWindow window;
        handle = window.Get();
        EXPECT_TRUE(::IsWindow(handle));
    }
    EXPECT_FALSE(::IsWindow(handle));
}

TEST_F(WindowTest, NoticesThatOthersHaveDestroyedIt) {
    const TestWindow window;
    ::DestroyWindow(window.Get());
    EXPECT_EQ(window.Get(), nullptr);
}

TEST_F(WindowTest, EndsWithItsParent) {
    auto parent = std::make_unique<TestWindow>();
    const TestWindow child({.Parent = parent->Get(), .Style = WS_CHILD});
    const ChildWindow label(
        MakeWindow(nullptr, L"STATIC", {.Parent = parent->Get(), .Style = WS_CHILD}));
    parent.reset();
    EXPECT_EQ(child.Get(), nullptr);
    // The owner of a window of another class does not close it a second time.
    EXPECT_FALSE(::IsWindow(label.Get()));
}

TEST_F(WindowTest, LetsNoExceptionThroughTheWindowSystem) {
    const TestWindow window;
    EXPECT_EQ(::SendMessageW(window.Get(), Failing, 0, 0), 0);
    EXPECT_EQ(::SendMessageW(window.Get(), Asked, 0, 0), 7);
}

TEST_F(WindowTest, KeepsItsClassWhileThereAreWindowsOfIt) {
    EXPECT_FALSE(IsClassRegistered());
    {
        auto first = std::make_unique<TestWindow>();
        const TestWindow second;
        first.reset();
        EXPECT_TRUE(IsClassRegistered());
    }
    EXPECT_FALSE(IsClassRegistered());
    const TestWindow again;
    EXPECT_TRUE(IsClassRegistered());
}

TEST_F(WindowTest, SaysThatTheWindowSystemRefuses) {
    EXPECT_THROW(MakeWindow(nullptr, L"QuorvaneNoSuchClass", {}), std::system_error);
    EXPECT_THROW(TestWindow({.Parent = nullptr, .Style = WS_CHILD}), std::system_error);
}

TEST_F(WindowTest, PutsTheWindowWhereItIsAsked) {
    const TestWindow window({.Position = {10, 20, 110, 70}, .Style = WS_POPUP});
    RECT place{};
    ::GetWindowRect(window.Get(), &place);
    EXPECT_EQ(place.left, 10);
    EXPECT_EQ(place.top, 20);
    EXPECT_EQ(place.right, 110);
    EXPECT_EQ(place.bottom, 70);
}

} // namespace
} // namespace Quorvane::Win
