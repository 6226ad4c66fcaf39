// SPDX-License-Identifier: MIT
// Texts in cells, as the display's windows and its drawing share them.
#include "control/display/CellDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "com/Fonts.h"
#include "tests/windows/support/Picture.h"

namespace Quorvane {
namespace {

constexpr RECT Whole{0, 0, 200, 30};

class CellText : public testing::Test {
  protected:
    /// The pixels of a picture in which a cell so wide has this text.
    std::string Drawn(const Text& text, int width) const {
        Picture picture(Whole.right, Whole.bottom);
        DrawCellText(picture.Context(), {10, 0, 10 + width, Whole.bottom}, text, font_.Get(), 0);
        std::string pixels;
        for (int y = 0; y < Whole.bottom; ++y) {
            for (int x = 0; x < Whole.right; ++x) {
                pixels += picture.At(x, y) == RGB(255, 255, 255) ? ' ' : '#';
            }
        }
        return pixels;
    }

    /// How many pixels of the picture are set. The dots stand where the text before them ends,
    /// which may be a pixel beside where the platform sets them in one word with it.
    std::ptrdiff_t InkOf(const Text& text, int width) const {
        return std::ranges::count(Drawn(text, width), '#');
    }

    int WidthOf(const Text& text) const { return TextWidth(font_.Get(), text); }

    Win::Font font_ = CaptionFont(96);
};

TEST_F(CellText, IsWholeWhereThereIsRoom) {
    const Text text = u"Temperature";
    const int width = WidthOf(text);
    EXPECT_NE(Drawn(text, width).find('#'), std::string::npos);
    EXPECT_EQ(Drawn(text, width), Drawn(text, width + 50));
    EXPECT_NE(Drawn(text, width), Drawn(text, width - 1));
}

TEST_F(CellText, EndsWithDotsWhereThereIsNone) {
    for (const Text& cut : {Text(u"Tempera..."), Text(u"T..."), Text(u"...")}) {
        const int width = WidthOf(cut);
        EXPECT_EQ(InkOf(u"Temperature", width), InkOf(cut, width)) << width;
    }
}

TEST_F(CellText, KeepsBothHalvesOfACharacterOrNone) {
    // One character of two units, in the middle of the cut.
    const Text text = u"A\xD83D\xDE00\xD83D\xDE00";
    const int half = WidthOf(u"A\xD83D") + WidthOf(u"...");
    EXPECT_EQ(InkOf(text, half), InkOf(u"A...", half));
}

TEST_F(CellText, StaysInItsCell) {
    EXPECT_EQ(Drawn(u"Temperature", 0).find('#'), std::string::npos);
    EXPECT_EQ(Drawn(u"Temperature", -5).find('#'), std::string::npos);
    Picture picture(Whole.right, Whole.bottom);
    DrawCellText(picture.Context(), {10, 0, 14, Whole.bottom}, u"Temperature", font_.Get(), 0);
    EXPECT_EQ(picture.Ink({14, 0, Whole.right, Whole.bottom}), 0);
}

} // namespace
} // namespace Quorvane
