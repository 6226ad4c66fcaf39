// SPDX-License-Identifier: MIT
// The layout of the control's display.
#include "control/display/DisplayLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Quorvane {
namespace {

constexpr float Dpis[] = {96, 120, 144, 168, 192, 288};

int Pixels(float twips, float dpi) {
    return static_cast<int>(std::lround(twips * dpi / 1440));
}

/// The layout of a surface of so many pixels.
PixelLayout LayOutPixels(int width, int height, float dpi) {
    DisplayLayout layout;
    const auto twips = [&](int pixels) { return static_cast<float>(pixels) * 1440 / dpi; };
    LayOut(layout, twips(width), twips(height), 100);
    return ToPixels(layout, width, height, dpi);
}

TEST(DisplayLayout, GivesEachListHalfTheWidthAndTenUnits) {
    DisplayLayout layout;
    LayOut(layout, 2000, 3000, 0);
    EXPECT_EQ(layout.StripWidth, 2000.0F);
    EXPECT_EQ(layout.Input, (ListGeometry{0, 330, 1010, 2340, 505}));
    EXPECT_EQ(layout.Output, (ListGeometry{990, 330, 1010, 2340, 505}));
}

TEST(DisplayLayout, HalvesInSinglePrecisionWithoutRounding) {
    DisplayLayout layout;
    LayOut(layout, 2001, 3000, 0);
    EXPECT_EQ(layout.Input.Width, 1010.5F);
    EXPECT_EQ(layout.Output.Left, 990.5F);
    EXPECT_EQ(layout.Input.ColumnWidth, 505.25F);
    LayOut(layout, 16777216, 3000, 0);
    EXPECT_EQ(layout.Input.Width, 8388618.0F);
    LayOut(layout, 33554436, 3000, 0);
    EXPECT_EQ(layout.Input.Width, 16777228.0F) << "the nearest single";
}

TEST(DisplayLayout, MakesTheLabelOneAndAHalfTimesAsWideAsItsText) {
    DisplayLayout layout;
    LayOut(layout, 2000, 3000, 700);
    EXPECT_EQ(layout.LabelWidth, 1050.0F);
    LayOut(layout, 2000, 3000, 0);
    EXPECT_EQ(layout.LabelWidth, 0.0F);
    EXPECT_EQ(LabelWidthFor(1), 1.5F);
}

TEST(DisplayLayout, KeepsTheHeightWhereStripAndStatusBarLeaveNone) {
    DisplayLayout layout;
    LayOut(layout, 2000, 3000, 0);
    for (const float height : {659.0F, 330.0F, 0.0F}) {
        LayOut(layout, 1000, height, 0);
        EXPECT_EQ(layout.Input.Height, 2340.0F) << height;
        EXPECT_EQ(layout.Output.Height, 2340.0F) << height;
        EXPECT_EQ(layout.Input.Width, 510.0F) << "the other steps go on";
    }
    LayOut(layout, 1000, 660, 0);
    EXPECT_EQ(layout.Input.Height, 0.0F) << "no height is one";
}

TEST(DisplayLayout, OverlapsTheListsByTheSameNumberOfPixelsAtEveryWidth) {
    for (const float dpi : Dpis) {
        for (int width = 1; width < 1500; ++width) {
            const PixelLayout pixels = LayOutPixels(width, 300, dpi);
            const PixelBox& input = pixels.Input.Box;
            const PixelBox& output = pixels.Output.Box;
            ASSERT_EQ(input.Left + input.Width - output.Left, Pixels(20, dpi))
                << width << " at " << dpi;
            ASSERT_EQ(output.Left + output.Width, width) << width << " at " << dpi;
        }
    }
}

TEST(DisplayLayout, RoundsToTheNearestPixel) {
    for (const float dpi : Dpis) {
        for (int width = 20; width < 700; ++width) {
            const PixelLayout pixels = LayOutPixels(width, 300, dpi);
            const float twips = static_cast<float>(width) * 1440 / dpi;
            ASSERT_EQ(pixels.Input.Box.Width, Pixels(twips / 2 + 10, dpi))
                << width << " at " << dpi;
            ASSERT_EQ(pixels.Input.ColumnWidth, Pixels((twips / 2 + 10) / 2, dpi));
            const float left = (twips / 2 - 10) * dpi / 1440;
            ASSERT_LE(std::abs(static_cast<float>(pixels.Output.Box.Left) - left), 1.0F)
                << width << " at " << dpi;
        }
    }
}

TEST(DisplayLayout, FillsTheHeightFromTheStripToTheStatusBar) {
    for (const float dpi : Dpis) {
        for (int height = 200; height < 400; ++height) {
            const PixelLayout pixels = LayOutPixels(500, height, dpi);
            const PixelBox& list = pixels.Input.Box;
            ASSERT_EQ(list.Top, pixels.Strip.Height);
            ASSERT_EQ(list.Top + list.Height, pixels.Status.Top) << height << " at " << dpi;
            ASSERT_EQ(pixels.Status.Top + pixels.Status.Height, height);
        }
    }
}

TEST(DisplayLayout, CutsTheTextOfTheCaptionWhereTheStripEnds) {
    DisplayLayout layout;
    LayOut(layout, 1500, 3000, 2000);
    const PixelLayout narrow = ToPixels(layout, 100, 200, 96);
    EXPECT_EQ(narrow.Label, (PixelBox{6, 0, 200, 22}));
    EXPECT_EQ(narrow.Caption, (PixelBox{6, 0, 94, 22}));
    LayOut(layout, 1500, 3000, 500);
    const PixelLayout wide = ToPixels(layout, 100, 200, 96);
    EXPECT_EQ(wide.Caption, wide.Label);
    LayOut(layout, 60, 3000, 2000);
    EXPECT_EQ(ToPixels(layout, 4, 200, 96).Caption.Width, 0);
}

TEST(DisplayLayout, LaysTheStripOverTheListsAndTheseOverTheStatusBar) {
    const auto level = [](Constituent constituent) {
        return std::ranges::find(StackingOrder, constituent) - StackingOrder.begin();
    };
    EXPECT_EQ(level(Constituent::Strip), 0);
    EXPECT_LT(level(Constituent::Input), level(Constituent::Output));
    EXPECT_EQ(level(Constituent::Status), 3);
}

TEST(DisplayLayout, LengthsStayNumbersForASurfaceWithoutEnd) {
    DisplayLayout layout;
    LayOut(layout, 4e12F, 4e12F, 1e12F);
    const PixelLayout pixels = ToPixels(layout, 1 << 27, 1 << 27, 20000);
    for (const PixelBox& box : {pixels.Strip, pixels.Label, pixels.Input.Box, pixels.Output.Box}) {
        EXPECT_GE(box.Left, 0);
        EXPECT_LE(box.Top, 1 << 28);
        EXPECT_LE(box.Height, 1 << 28);
    }
    EXPECT_GT(pixels.Strip.Width, 1 << 27);
    EXPECT_GT(pixels.Input.Box.Height, 1 << 27);
    EXPECT_GT(pixels.Input.ColumnWidth, 1 << 27);
}

} // namespace
} // namespace Quorvane
