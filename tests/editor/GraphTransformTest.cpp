// SPDX-License-Identifier: MIT
// Tests of the conversion between user units and pixels.
#include "editor/page/GraphTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Quorvane::Editor {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();

TEST(GraphTransform, MapsTheCornersAndTheMiddle) {
    const GraphTransform transform({-1, 2, 1.35F, -1.77F}, 400, 177);
    const std::pair<float, int> xs[] = {{-1, 0}, {-0.5, 100}, {0, 200}, {1, 400}, {1.5, 500}};
    for (const auto& [x, pixel] : xs) {
        EXPECT_EQ(transform.PixelX(x), pixel);
    }
    const std::pair<float, int> ys[] = {{1.35F, 0}, {1, 35}, {0, 135}, {-0.42F, 177}};
    for (const auto& [y, pixel] : ys) {
        EXPECT_EQ(transform.PixelY(y), pixel);
    }
}

TEST(GraphTransform, MeasuresInTheSignOfTheScale) {
    const GraphTransform transform({-1, 2, 1, -2}, 400, 100);
    EXPECT_FLOAT_EQ(transform.UserWidth(100), 0.5F);
    EXPECT_FLOAT_EQ(transform.UserHeight(25), -0.5F);
    EXPECT_FLOAT_EQ(transform.UserWidth(0), 0);
}

TEST(GraphTransform, KeepsLinesOnTheBordersWhollyInside) {
    const GraphTransform transform({0, 1, 1, -2}, 400, 100);
    struct Case {
        float X;
        int PenWidth;
        int Middle;
    };
    const Case cases[] = {
        {0, 1, 0},
        {1, 1, 399},
        {0, 2, 1},
        {1, 2, 399},
        {0, 3, 1},
        {1, 3, 398},
        {0, 4, 2},
        {1, 4, 398},
        {0.5F, 4, 200},
        {0.005F, 2, 2},
        {0.995F, 2, 398},
        // What lies beyond a border stays there.
        {-0.5F, 4, -200},
        {1.5F, 4, 600},
    };
    for (const auto& [x, penWidth, middle] : cases) {
        EXPECT_EQ(transform.LineX(x, penWidth), middle) << x << ' ' << penWidth;
    }
    EXPECT_EQ(GraphTransform({0, 1, 1, -2}, 0, 0).LineX(0, 2), 1);
}

TEST(GraphTransform, PutsAUniverseWithoutWidthInTheMiddle) {
    for (const float width : {0.0F, Infinity, std::nanf("")}) {
        const GraphTransform transform({2, width, 1, -2}, 400, 100);
        for (const float x : {2.0F, -5.0F, Infinity}) {
            EXPECT_EQ(transform.PixelX(x), 200);
        }
    }
}

TEST(GraphTransform, KeepsFarPointsWithinWhatSurfacesTake) {
    const GraphTransform transform({0, 1E-12F, 1, -2}, 400, 100);
    EXPECT_EQ(transform.PixelX(1E30F), 16000);
    EXPECT_EQ(transform.PixelX(-1E30F), -16000);
    EXPECT_EQ(transform.PixelX(Infinity), 16000);
    EXPECT_EQ(transform.PixelX(std::nanf("")), 200);
    EXPECT_EQ(transform.PixelY(-Infinity), 16000);
}

TEST(GraphTransform, MeasuresNothingWithoutASize) {
    const GraphTransform flat({0, 1, 1, -2}, 0, 0);
    EXPECT_EQ(flat.UserWidth(10), 0);
    EXPECT_EQ(flat.UserHeight(10), 0);
    EXPECT_EQ(flat.PixelX(0.5F), 0);
    EXPECT_EQ(GraphTransform({0, Infinity, 1, -2}, 10, 10).UserWidth(10), 0);
}

} // namespace
} // namespace Quorvane::Editor
