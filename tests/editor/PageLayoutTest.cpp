// SPDX-License-Identifier: MIT
// Tests of where the page puts its parts, at any size and resolution.
#include "editor/page/PageLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace Quorvane::Editor {
namespace {

constexpr PageMeasures At96{.Units = {6, 13}, .TreeLine = 16, .Edges = 4};
constexpr PageMeasures At144{.Units = {9, 19}, .TreeLine = 24, .Edges = 4};
constexpr PageMeasures At192{.Units = {12, 26}, .TreeLine = 32, .Edges = 4};

std::vector<Area> PartsOf(const PageLayout& layout) {
    std::vector<Area> parts{layout.TreInput, layout.TreOutput, layout.PicMF};
    parts.insert(parts.end(), layout.Buttons.begin(), layout.Buttons.end());
    return parts;
}

bool Overlap(const Area& one, const Area& other) {
    return one.Left < other.Left + other.Width && other.Left < one.Left + one.Width &&
           one.Top < other.Top + other.Height && other.Top < one.Top + one.Height;
}

TEST(PageLayout, IsThatOfASheetOfThePlatform) {
    EXPECT_EQ(PageLayout::NaturalSize(At96.Units), (PageSize{378, 354}));
    EXPECT_EQ(PageLayout::NaturalSize(At192.Units), (PageSize{756, 709}));
}

TEST(PageLayout, GivesTheGraphTheHeightOfItsTextsAndTheTreesTheRest) {
    const PageLayout layout = PageLayout::For({378, 354}, At96);
    // 354 less two margins of 11, the buttons' 23 and two gaps of 7; 134 and the edges.
    EXPECT_EQ(layout.TreInput, (Area{11, 11, 175, 157}));
    EXPECT_EQ(layout.TreOutput, (Area{192, 11, 175, 157}));
    EXPECT_EQ(layout.Buttons[0], (Area{11, 175, 84, 23}));
    EXPECT_EQ(layout.Buttons[3], (Area{281, 175, 84, 23}));
    EXPECT_EQ(layout.PicMF, (Area{11, 205, 356, 138}));
}

TEST(PageLayout, LetsTheGraphGrowWhereTheTreesShowAWholeVariable) {
    struct Case {
        int Height;
        int Trees;
        int Graph;
    };
    // 19 lines and the edges are 308.
    const Case cases[] = {{504, 307, 138}, {505, 308, 138}, {506, 308, 139},
                          {574, 308, 207}, {600, 334, 207}, {1000, 734, 207}};
    for (const auto& [height, trees, graph] : cases) {
        const PageLayout layout = PageLayout::For({378, height}, At96);
        EXPECT_EQ(layout.TreInput.Height, trees) << height;
        EXPECT_EQ(layout.PicMF.Height, graph) << height;
    }
}

TEST(PageLayout, LeavesTheTreesHalfOfALowPage) {
    const PageLayout layout = PageLayout::For({378, 259}, At96);
    EXPECT_EQ(layout.TreInput.Height, 100);
    EXPECT_EQ(layout.PicMF.Height, 100);
}

TEST(PageLayout, PutsThePartsApartFromTheNaturalSizeOn) {
    for (const PageMeasures& measures : {At96, At144, At192}) {
        const PageSize natural = PageLayout::NaturalSize(measures.Units);
        for (const int more : {0, 1, 333}) {
            const PageSize page{natural.Width + more, natural.Height + more};
            const auto parts = PartsOf(PageLayout::For(page, measures));
            for (auto part = parts.begin(); part != parts.end(); ++part) {
                EXPECT_GT(std::min({part->Left, part->Top, part->Width, part->Height}), 0);
                EXPECT_LT(part->Left + part->Width, page.Width);
                EXPECT_LT(part->Top + part->Height, page.Height);
                EXPECT_TRUE(std::none_of(parts.begin(), part, [&part](const Area& other) {
                    return Overlap(*part, other);
                }));
            }
        }
    }
}

TEST(PageLayout, HasNoPartOfANegativeSize) {
    for (const PageSize page :
         {PageSize{0, 0}, PageSize{20, 400}, PageSize{400, 20}, PageSize{-5, -5}}) {
        for (const Area& part : PartsOf(PageLayout::For(page, At96))) {
            EXPECT_GE(part.Width, 0) << page.Width << 'x' << page.Height;
            EXPECT_GE(part.Height, 0) << page.Width << 'x' << page.Height;
        }
    }
}

} // namespace
} // namespace Quorvane::Editor
