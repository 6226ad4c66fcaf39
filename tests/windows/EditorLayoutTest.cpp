// SPDX-License-Identifier: MIT
// Where the editors put their parts, at any size and resolution.
#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "editor/windows/PageLayout.h"
#include "win/WorkArea.h"

namespace Quorvane {
namespace {

std::vector<RECT> PartsOf(const Editor::PageLayout& layout) {
    std::vector<RECT> parts{layout.TreInput, layout.TreOutput, layout.PicMF};
    parts.insert(parts.end(), layout.Buttons.begin(), layout.Buttons.end());
    return parts;
}

TEST(EditorLayout, ThePagesPartsStandApartAtItsNaturalSizeAndAbove) {
    for (const int dpi : {96, 144, 192}) {
        const Editor::DialogFont font(dpi);
        const SIZE natural = Editor::PageLayout::NaturalSize(font);
        for (const LONG more : {0L, 1L, 333L}) {
            const RECT page{0, 0, natural.cx + more, natural.cy + more};
            const auto parts = PartsOf(Editor::PageLayout::For({page.right, page.bottom}, font));
            for (std::size_t i = 0; i < parts.size(); ++i) {
                RECT shared{};
                EXPECT_FALSE(::IsRectEmpty(&parts[i]));
                ::IntersectRect(&shared, &parts[i], &page);
                EXPECT_TRUE(::EqualRect(&shared, &parts[i])) << dpi << " part " << i;
                for (std::size_t k = 0; k < i; ++k) {
                    EXPECT_FALSE(::IntersectRect(&shared, &parts[i], &parts[k]))
                        << dpi << " parts " << k << " and " << i;
                }
            }
        }
    }
}

TEST(EditorLayout, NoPartOfASmallPageHasANegativeSize) {
    const Editor::DialogFont font(96);
    for (const SIZE page : {SIZE{0, 0}, SIZE{20, 400}, SIZE{400, 20}, SIZE{-5, -5}}) {
        for (const RECT& part : PartsOf(Editor::PageLayout::For(page, font))) {
            EXPECT_GE(part.right, part.left) << page.cx << 'x' << page.cy;
            EXPECT_GE(part.bottom, part.top) << page.cx << 'x' << page.cy;
        }
    }
}

TEST(EditorLayout, AWindowIsMovedIntoTheWorkAreaAndMadeToFitIt) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    ASSERT_TRUE(::GetMonitorInfoW(::MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &screen));
    const RECT& work = screen.rcWork;
    const struct {
        RECT Place;
        RECT Moved;
    } cases[] = {
        {{work.left + 10, work.top + 20, work.left + 110, work.top + 90},
         {work.left + 10, work.top + 20, work.left + 110, work.top + 90}},
        {{work.right - 10, work.bottom - 10, work.right + 90, work.bottom + 40},
         {work.right - 100, work.bottom - 50, work.right, work.bottom}},
        {{work.left - 50, work.top - 60, work.left + 50, work.top + 40},
         {work.left, work.top, work.left + 100, work.top + 100}},
        {{work.left - 50, work.top - 60, work.right + 50, work.bottom + 40}, work},
    };
    for (const auto& test : cases) {
        const RECT moved = Win::WithinWorkArea(test.Place);
        EXPECT_TRUE(::EqualRect(&moved, &test.Moved))
            << moved.left << ',' << moved.top << ' ' << moved.right << ',' << moved.bottom;
    }
}

} // namespace
} // namespace Quorvane
