// SPDX-License-Identifier: MIT
// Tests of recognizing and reading any file with a system.
#include "formats/SystemFile.h"

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"

namespace Quorvane::Formats {
namespace {

const System::FuzzySystem Small =
    System::FromPlainTexts({u"X/8/0/A,0,0,2,6", u"Y/16/0/P,0", u"X>A/Y<P:1"});

constexpr Format All[] = {Format::Definition, Format::Form, Format::PlainTexts,
                          Format::StoredTexts};

TEST(SystemFile, IsRecognizedByItsContentWhateverItsName) {
    for (const Format format : All) {
        const std::string text = WriteSystem(Small, format, "Room");
        EXPECT_EQ(FormatOf(text, ""), format);
        EXPECT_EQ(FormatOf(text, ".unknown"), format);
        EXPECT_EQ(ReadSystem(text, format), Small);
    }
    EXPECT_EQ(FormatOf(WriteSystem(Small, Format::StoredTexts, "Room"), ".txt"),
              Format::StoredTexts);
    EXPECT_EQ(FormatOf("' A room\nVersion 1\n", ""), Format::Form);
}

TEST(SystemFile, IsOfItsEndingWhereTheContentTellsNothing) {
    EXPECT_EQ(FormatOf("broken", ".form"), Format::Form);
    EXPECT_EQ(FormatOf("broken", ".FUZZY"), Format::Definition);
    EXPECT_EQ(FormatOf("broken", ".txt"), Format::PlainTexts);
    EXPECT_EQ(FormatOf("broken", ""), Format::PlainTexts);
}

TEST(SystemFile, HasNamesAndEndings) {
    for (const Format format : All) {
        EXPECT_EQ(FormatNamed(NameOf(format)), format);
    }
    EXPECT_EQ(FormatNamed("none"), std::nullopt);
    EXPECT_EQ(FormatOfExtension(".fuzzy"), Format::Definition);
    EXPECT_EQ(FormatOfExtension(".Form"), Format::Form);
    EXPECT_EQ(FormatOfExtension(""), std::nullopt);
}

} // namespace
} // namespace Quorvane::Formats
