// SPDX-License-Identifier: MIT
// Where the editors put their parts, at any size and resolution.
#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "editor/page/PageLayout.h"
#include "editor/windows/Controls.h"
#include "win/WorkArea.h"

namespace Quorvane {
namespace {

std::vector<RECT> PartsOf(const Editor::PageLayout& layout) {
    std::vector<Editor::Area> parts{layout.TreInput, layout.TreOutput, layout.PicMF};
    parts.insert(parts.end(), layout.Buttons.begin(), layout.Buttons.end());
    std::vector<RECT> places;
    for (const Editor::Area& part : parts) {
        places.push_back({part.Left, part.Top, part.Left + part.Width, part.Top + part.Height});
    }
    return places;
}

TEST(EditorLayout, ThePagesPartsStandApartAtItsNaturalSizeAndAbove) {
    for (const int dpi : {96, 144, 192}) {
        const Editor::DialogFont font(dpi);
        const Editor::PageMeasures measures{
            .Units = font.Units(), .TreeLine = ::MulDiv(16, dpi, 96), .Edges = 4};
        const Editor::PageSize natural = Editor::PageLayout::NaturalSize(font.Units());
        for (const int more : {0, 1, 333}) {
            const Editor::PageSize size{natural.Width + more, natural.Height + more};
            const RECT page{0, 0, size.Width, size.Height};
            const auto parts = PartsOf(Editor::PageLayout::For(size, measures));
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
