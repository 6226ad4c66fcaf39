// SPDX-License-Identifier: MIT
// Tests of splitting, widening and case folding.
#include "shared/Text.h"

#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

TEST(Text, SplitsAtEverySeparatorAndAnEmptyTextIntoNothing) {
    struct Case {
        const char16_t* Whole;
        std::vector<TextView> Pieces;
    };
    const Case cases[] = {
        {u"", {}},
        {u"a", {u"a"}},
        {u";", {u"", u""}},
        {u"a;b", {u"a", u"b"}},
        {u"a;", {u"a", u""}},
        {u";a", {u"", u"a"}},
        {u"a;;b", {u"a", u"", u"b"}},
        {u" a ; b ", {u" a ", u" b "}},
        {u"a,b|c", {u"a,b|c"}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Whole));
        EXPECT_EQ(Split(test.Whole, u';'), test.Pieces);
    }
}

TEST(Text, SplitsIntoAVectorThatWasUsedBefore) {
    std::vector<TextView> pieces{u"old", u"older"};
    Split(u"a;b;c", u';', pieces);
    EXPECT_EQ(pieces, (std::vector<TextView>{u"a", u"b", u"c"}));
    Split(u"", u';', pieces);
    EXPECT_TRUE(pieces.empty());
}

TEST(Text, PiecesViewTheGivenText) {
    const Text whole = u"ab;cd";
    const auto pieces = Split(whole, u';');
    EXPECT_EQ(pieces[1].data(), whole.data() + 3);
}

TEST(Text, WidensAscii) {
    EXPECT_EQ(Widen(""), u"");
    EXPECT_EQ(Widen("-1.5E+20 ~"), u"-1.5E+20 ~");
}

TEST(Text, FoldsTheLettersItKnows) {
    struct Case {
        char16_t Lower;
        char16_t Upper;
    };
    const Case cases[] = {
        {u'a', u'A'},     {u'z', u'Z'},     {0x00E0, 0x00C0}, {0x00F6, 0x00D6}, {0x00FE, 0x00DE},
        {0x00FF, 0x0178}, {0x03B1, 0x0391}, {0x03C1, 0x03A1}, {0x03C3, 0x03A3}, {0x03C9, 0x03A9},
        {0x03CB, 0x03AB}, {0x0430, 0x0410}, {0x044F, 0x042F}, {0x0450, 0x0400}, {0x045F, 0x040F},
        {0xFF41, 0xFF21}, {0xFF5A, 0xFF3A},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(FoldCase(test.Lower), test.Upper);
        EXPECT_EQ(FoldCase(test.Upper), test.Upper);
    }
}

TEST(Text, FoldsNothingElse) {
    // Neighbours of the letters, digits, the division sign, sharp s, final sigma and Chinese.
    for (const char16_t character : {u'@', u'[', u'`', u'{', u'0', u'_', u'>', u'<'}) {
        EXPECT_EQ(FoldCase(character), character);
    }
    for (const int character : {0xF7, 0xD7, 0xDF, 0xB5, 0x3B0, 0x3C2, 0x3CC, 0x42F, 0x460, 0x4E2D,
                                0xFF40, 0xFF5B, 0xFFFF}) {
        EXPECT_EQ(FoldCase(static_cast<char16_t>(character)), character);
    }
}

TEST(Text, FoldingTwiceIsFoldingOnce) {
    for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t folded = FoldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(FoldCase(folded), folded) << unit;
    }
}

} // namespace
} // namespace Quorvane
