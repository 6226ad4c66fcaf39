// SPDX-License-Identifier: MIT
// Tests of watching the messages of somebody else's window.
#include "win/Subclass.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

#include "win/Window.h"

namespace Quorvane::Win {
namespace {

constexpr UINT Asked = WM_APP + 1;
constexpr LRESULT Unhandled = 0;

ChildWindow MakeStatic() {
    return ChildWindow(MakeWindow(nullptr, L"STATIC", {.Style = WS_POPUP}));
}

LRESULT Ask(const ChildWindow& window) {
    return ::SendMessageW(window.Get(), Asked, 0, 0);
}

TEST(SubclassTest, AnswersBeforeTheWindowDoes) {
    const ChildWindow window = MakeStatic();
    const Subclass subclass(window.Get(), [](UINT message, WPARAM, LPARAM) {
        return message == Asked ? std::optional<LRESULT>(7) : std::nullopt;
    });
    EXPECT_EQ(Ask(window), 7);
    // What it gives no answer to reaches the window.
    ::SetWindowTextW(window.Get(), L"text");
    EXPECT_EQ(::GetWindowTextLengthW(window.Get()), 4);
}

TEST(SubclassTest, SeesNothingMoreOnceItHasEnded) {
    const ChildWindow window = MakeStatic();
    {
        const Subclass subclass(window.Get(),
                                [](UINT, WPARAM, LPARAM) { return std::optional<LRESULT>(7); });
        EXPECT_EQ(Ask(window), 7);
    }
    EXPECT_EQ(Ask(window), Unhandled);
}

TEST(SubclassTest, OutlivesItsWindow) {
    auto window = MakeStatic();
    int destroyed = 0;
    const Subclass subclass(window.Get(), [&](UINT message, WPARAM, LPARAM) {
        destroyed += message == WM_DESTROY ? 1 : 0;
        return std::optional<LRESULT>();
    });
    window.Reset();
    EXPECT_EQ(destroyed, 1);
}

TEST(SubclassTest, MayEndInItsOwnHandler) {
    const ChildWindow window = MakeStatic();
    std::unique_ptr<Subclass> subclass;
    std::vector<int> kept{1, 2, 3};
    int sum = 0;
    subclass = std::make_unique<Subclass>(window.Get(),
                                          [&subclass, &sum, kept](UINT message, WPARAM, LPARAM) {
                                              if (message != Asked) {
                                                  return std::optional<LRESULT>();
                                              }
                                              subclass.reset();
                                              // What the handler holds is still there.
                                              for (const int value : kept) {
                                                  sum += value;
                                              }
                                              return std::optional<LRESULT>(5);
                                          });
    EXPECT_EQ(Ask(window), 5);
    EXPECT_EQ(sum, 6);
    EXPECT_EQ(Ask(window), Unhandled);
}

TEST(SubclassTest, TakesAnExceptionForNoAnswer) {
    const ChildWindow window = MakeStatic();
    const Subclass subclass(window.Get(),
                            [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                                if (message == Asked) {
                                    throw std::bad_alloc();
                                }
                                return std::nullopt;
                            });
    EXPECT_EQ(Ask(window), Unhandled);
}

TEST(SubclassTest, StacksOnOneWindowAndEndsInAnyOrder) {
    const ChildWindow window = MakeStatic();
    const auto answer = [](LRESULT result) {
        return [result](UINT message, WPARAM, LPARAM) {
            return message == Asked ? std::optional<LRESULT>(result) : std::nullopt;
        };
    };
    auto first = std::make_unique<Subclass>(window.Get(), answer(1));
    const auto second = std::make_unique<Subclass>(window.Get(), answer(2));
    EXPECT_EQ(Ask(window), 2);
    first.reset();
    EXPECT_EQ(Ask(window), 2);
}

TEST(SubclassTest, LeavesTheDataOfTheWindowAlone) {
    // A host keeps its own things there.
    const ChildWindow window = MakeStatic();
    ::SetWindowLongPtrW(window.Get(), GWLP_USERDATA, 42);
    {
        const Subclass subclass(window.Get(),
                                [](UINT, WPARAM, LPARAM) { return std::optional<LRESULT>(); });
        EXPECT_EQ(::GetWindowLongPtrW(window.Get(), GWLP_USERDATA), 42);
    }
    EXPECT_EQ(::GetWindowLongPtrW(window.Get(), GWLP_USERDATA), 42);
}

TEST(SubclassTest, HasTheWindowHandleAMessageInTheMiddle) {
    const ChildWindow window = MakeStatic();
    LRESULT length = 0;
    const Subclass subclass(window.Get(), [&](UINT message, WPARAM first, LPARAM second) {
        if (message == WM_SETTEXT) {
            Subclass::Default(window.Get(), message, first, second);
            length = Subclass::Default(window.Get(), WM_GETTEXTLENGTH, 0, 0);
            return std::optional<LRESULT>(TRUE);
        }
        return std::optional<LRESULT>();
    });
    ::SetWindowTextW(window.Get(), L"text");
    EXPECT_EQ(length, 4);
}

TEST(SubclassTest, RefusesWhatIsNoWindow) {
    EXPECT_ANY_THROW(
        Subclass(nullptr, [](UINT, WPARAM, LPARAM) { return std::optional<LRESULT>(); }));
}

} // namespace
} // namespace Quorvane::Win
