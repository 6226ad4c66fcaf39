// SPDX-License-Identifier: MIT
// Tests of the codec between plain and stored text.
#include "model/TransformText.h"

#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"

namespace Quorvane {
namespace {

Text Encoded(TextView plain) {
    return Main::TransformText(plain, true);
}

Text Decoded(TextView stored) {
    return Main::TransformText(stored, false);
}

class TransformTextTest : public CoreTest {};

struct CodecCase {
    TextView Plain;
    TextView Stored;
};

TEST_F(TransformTextTest, WritesTwoDigitsPerAsciiCharacterLowestFirst) {
    // Codes: A 41, / 2F, 1 31, blank 20, ~ 7E, | 7C, a 61, z 7A, [ 5B, ] 5D.
    const CodecCase cases[] = {
        {u"", u""},          {u"A", u"14"},    {u"/", u"F2"},      {u"1", u"13"},
        {u"A/1", u"14F213"}, {u" ", u"02"},    {u"~", u"E7"},      {u"|", u"C7"},
        {u"az", u"16A7"},    {u"[]", u"B5D5"}, {u"\u0010", u"01"}, {u"\u007F", u"F7"},
    };
    for (const CodecCase& test : cases) {
        SCOPED_TRACE(Narrow(test.Plain));
        EXPECT_EQ(Encoded(test.Plain), test.Stored);
        EXPECT_EQ(Decoded(test.Stored), test.Plain);
    }
}

TEST_F(TransformTextTest, ReturnsAnyPrintableAsciiTextUnchanged) {
    Text all;
    for (char16_t character = u' '; character <= u'~'; ++character) {
        all += character;
    }
    EXPECT_EQ(Encoded(all).size(), 2 * all.size());
    EXPECT_EQ(Decoded(Encoded(all)), all);
}

TEST_F(TransformTextTest, DecodesEitherLetterCase) {
    EXPECT_EQ(Decoded(u"f2"), u"/");
    EXPECT_EQ(Decoded(u"c7C7"), u"||");
    EXPECT_EQ(Decoded(u"Af"), u"\u00FA");
    EXPECT_EQ(Decoded(u"aFFa"), u"\u00FA\u00AF");
}

TEST_F(TransformTextTest, DecodesAnOddLastDigitByItself) {
    EXPECT_EQ(Decoded(u"9"), u"\t");
    EXPECT_EQ(Decoded(u"14F"), u"A\u000F");
    EXPECT_EQ(Decoded(u"0"), Text(1, u'\0'));
}

TEST_F(TransformTextTest, RefusesWhatIsNoHexadecimalDigit) {
    for (const TextView stored :
         {u"G4", u"4G", u"1 ", u" 1", u"14 ", u"-1", u"+1", u"0x", u"&H", u"14F213\n", u"@4", u"4`",
          u"g", u"/1", u":1", u"\u0131\u0134", u"\uFF11\uFF14"}) {
        EXPECT_EQ(Raised([&] { Decoded(stored); }), PlatformError(RuntimeError::TypeMismatch))
            << Narrow(stored);
    }
}

TEST_F(TransformTextTest, WritesCodesBelowSixteenWithOneDigitAndSoCannotReadThem) {
    EXPECT_EQ(Encoded(u"\t"), u"9");
    EXPECT_EQ(Encoded(TextView(u"\0", 1)), u"0");
    EXPECT_EQ(Encoded(u"\n\r"), u"AD");
    // A 41, tab 9, B 42 give 14 9 24, which reads back as 41 29 4.
    EXPECT_EQ(Encoded(u"A\tB"), u"14924");
    EXPECT_EQ(Decoded(u"14924"), u"A)\u0004");
}

TEST_F(TransformTextTest, WritesSingleByteCharactersByTheCodePage) {
    const TestPlatform western(CodePage1252());
    const PlatformInUse inUse(western);
    const CodecCase cases[] = {
        {u"\u00C4", u"4C"}, // C4
        {u"\u00FF", u"FF"}, // FF
        {u"\u20AC", u"08"}, // 80
        {u"\u0178", u"F9"}, // 9F
        {u"\u0081", u"18"}, // 81
        {u"a\u00A0b", u"160A26"},
    };
    for (const CodecCase& test : cases) {
        EXPECT_EQ(Encoded(test.Plain), test.Stored);
        EXPECT_EQ(Decoded(test.Stored), test.Plain);
    }
}

TEST_F(TransformTextTest, EveryCodeOfASingleByteCodePageDecodesAndEncodesBack) {
    const TestPlatform western(CodePage1252());
    const PlatformInUse inUse(western);
    for (char16_t code = 0x10; code <= 0xFF; ++code) {
        const Text stored{u"0123456789ABCDEF"[code & 0xF], u"0123456789ABCDEF"[code >> 4]};
        const Text plain = Decoded(stored);
        ASSERT_EQ(plain.size(), 1U);
        EXPECT_EQ(Encoded(plain), stored) << std::uint32_t{code};
    }
}

TEST_F(TransformTextTest, WritesDoubleByteCharactersWithFourDigitsAndSoCannotReadThem) {
    const TestPlatform chinese(CodePage936());
    const PlatformInUse inUse(chinese);
    // D6D0: all four digits reversed.
    EXPECT_EQ(Encoded(u"中"), u"0D6D");
    EXPECT_EQ(Decoded(u"0D6D"), u"??");
    // CEC2 B6C8, with ASCII between.
    EXPECT_EQ(Encoded(u"温A度"), u"2CEC148C6B");
    // The one single byte beyond ASCII is a character of its own.
    EXPECT_EQ(Encoded(u"\u20AC"), u"08");
    EXPECT_EQ(Decoded(u"08"), u"\u20AC");
}

TEST_F(TransformTextTest, WritesAQuestionMarkForWhatTheCodePageLacks) {
    const TestPlatform western(CodePage1252());
    const TestPlatform chinese(CodePage936());
    {
        const PlatformInUse inUse(western);
        EXPECT_EQ(Encoded(u"中"), u"F3");
        EXPECT_EQ(Encoded(u"\u0416"), u"F3");
        // A character outside the basic plane is two units, and so two question marks.
        EXPECT_EQ(Encoded(u"\U0001F600"), u"F3F3");
    }
    const PlatformInUse inUse(chinese);
    EXPECT_EQ(Encoded(u"\u00C4"), u"F3");
}

TEST_F(TransformTextTest, AsciiIsTheSameInEveryCodePage) {
    const TestPlatform none;
    const PlatformInUse inUse(none);
    EXPECT_EQ(Encoded(u"A/1"), u"14F213");
    EXPECT_EQ(Decoded(u"14F213"), u"A/1");
}

} // namespace
} // namespace Quorvane
