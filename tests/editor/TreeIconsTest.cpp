// SPDX-License-Identifier: MIT
// Tests of the tree icons: each shows something, none looks like another, at every size.
#include "editor/page/TreeIcons.h"

#include <algorithm>
#include <map>

#include "tests/editor/EditorTest.h"

namespace Quorvane::Editor {
namespace {

constexpr int Sides[] = {16, 20, 24, 32, 48};

std::uint32_t Channel(std::uint32_t pixel, int shift) {
    return pixel >> shift & 0xFF;
}

TEST(TreeIcons, AreAsManyPixelsAsTheirSidesSay) {
    for (const int side : {1, 16, 17, 32, 64}) {
        for (const TextView key : TreeIconKeys) {
            EXPECT_EQ(DrawTreeIcon(key, side).size(), static_cast<std::size_t>(side * side));
        }
    }
}

TEST(TreeIcons, AllLookDifferent) {
    for (const int side : Sides) {
        std::map<std::vector<std::uint32_t>, Text> seen;
        for (const TextView key : TreeIconKeys) {
            const auto [other, isNew] = seen.emplace(DrawTreeIcon(key, side), key);
            EXPECT_TRUE(isNew) << Narrow(key) << " looks like " << Narrow(other->second);
        }
    }
}

TEST(TreeIcons, HavePicturesOnATransparentGround) {
    for (const int side : Sides) {
        for (const TextView key : TreeIconKeys) {
            const auto pixels = DrawTreeIcon(key, side);
            const auto alpha = [](std::uint32_t pixel) { return Channel(pixel, 24); };
            EXPECT_EQ(alpha(pixels.front()), 0U) << Narrow(key);
            EXPECT_GT(std::ranges::count(pixels, 255U, alpha), side) << Narrow(key);
            EXPECT_GT(std::ranges::count(pixels, 0U, alpha), side) << Narrow(key);
        }
    }
}

TEST(TreeIcons, HaveTheirColoursInSoftEdgesToo) {
    // Whatever is mixed of the icons' colours lies between the least and the most of each channel.
    constexpr struct {
        int Shift;
        std::uint32_t Least;
        std::uint32_t Most;
    } ranges[] = {{16, 38, 214}, {8, 90, 180}, {0, 40, 200}};
    int softPixels = 0;
    for (const TextView key : TreeIconKeys) {
        for (const std::uint32_t pixel : DrawTreeIcon(key, 24)) {
            const std::uint32_t alpha = Channel(pixel, 24);
            softPixels += alpha > 0 && alpha < 255 ? 1 : 0;
            for (const auto& [shift, least, most] : ranges) {
                if (alpha > 0) {
                    EXPECT_GE(Channel(pixel, shift), least) << Narrow(key);
                    EXPECT_LE(Channel(pixel, shift), most) << Narrow(key);
                }
            }
        }
    }
    EXPECT_GT(softPixels, 100);
}

TEST(TreeIcons, ASoftEdgeOfOneColourIsThatColour) {
    // The dots of the input's list are laid on nothing.
    const auto pixels = DrawTreeIcon(u"Inputs", 32);
    int softPixels = 0;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::uint32_t alpha = Channel(pixels[i], 24);
        if (i % 32 < 11 && alpha > 0 && alpha < 255) {
            ++softPixels;
            EXPECT_EQ(pixels[i] & 0xFFFFFF, 0x2678B2U) << i;
        }
    }
    EXPECT_GT(softPixels, 10);
}

TEST(TreeIcons, MarkThePointThatTheyStandFor) {
    // The orange dot lies left of the middle for the first two points, right of it for the others.
    const std::pair<TextView, bool> cases[] = {
        {u"MF_P1", true}, {u"MF_P2", true}, {u"MF_P3", false}, {u"MF_P4", false}};
    constexpr int side = 32;
    for (const auto& [key, isLeft] : cases) {
        const auto pixels = DrawTreeIcon(key, side);
        int left = 0;
        int right = 0;
        for (int i = 0; i < side * side; ++i) {
            const bool isMark = pixels[static_cast<std::size_t>(i)] == 0xFFD65C28;
            (i % side < side / 2 ? left : right) += isMark ? 1 : 0;
        }
        EXPECT_GT(isLeft ? left : right, 20) << Narrow(key);
        EXPECT_EQ(isLeft ? right : left, 0) << Narrow(key);
    }
}

TEST(TreeIcons, AnUnknownKeyIsTransparent) {
    for (const TextView key : {u"", u"Nothing", u"mf"}) {
        EXPECT_EQ(std::ranges::count(DrawTreeIcon(key, 16), 0U), 256);
    }
}

} // namespace
} // namespace Quorvane::Editor
