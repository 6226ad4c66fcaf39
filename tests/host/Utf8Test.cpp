// SPDX-License-Identifier: MIT
// Utf8Test: conversion between UTF-8 and UTF-16.
#include "host/formfile/Utf8.h"

#include <gtest/gtest.h>

namespace {

using namespace Quorvane::Host;
using namespace std::string_literals;

TEST(Utf8, TextAndBytesAreTheSameInBothDirections) {
    const struct {
        std::string Bytes;
        std::u16string Text;
    } cases[] = {
        {"", u""},
        {"plain", u"plain"},
        {"a\0b"s, u"a\0b"s},
        {"\x7F\xC2\x80", u"\u007F\u0080"},
        {"\xDF\xBF\xE0\xA0\x80", u"\u07FF\u0800"},
        {"\xE6\xB8\xA9", u"\u6E29"},
        {"\xEF\xBF\xBF", u"\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DecodeUtf8(c.Bytes), c.Text) << c.Bytes;
        EXPECT_EQ(EncodeUtf8(c.Text), c.Bytes) << c.Bytes;
    }
}

TEST(Utf8, DropsAByteOrderMarkAtTheStartOnly) {
    EXPECT_EQ(DecodeUtf8("\xEF\xBB\xBFx"), u"x");
    EXPECT_EQ(DecodeUtf8("x\xEF\xBB\xBF"), u"x\uFEFF");
}

TEST(Utf8, RefusesMalformedBytesAndTellsWhere) {
    const struct {
        std::string Bytes;
        std::size_t Offset;
    } cases[] = {
        {"\x80", 0},
        {"ab\xFF", 2},
        {"a\xC3", 1},
        {"a\xE6\xB8", 1},
        {"\xC3(", 0},
        {"\xC0\x80", 0},
        {"\xC1\xBF", 0},
        {"\xE0\x9F\xBF", 0},
        {"\xF0\x8F\xBF\xBF", 0},
        {"xyz\xED\xA0\x80", 3},
        {"\xF4\x90\x80\x80", 0},
        {"\xF8\x88\x80\x80\x80", 0},
    };
    for (const auto& c : cases) {
        try {
            DecodeUtf8(c.Bytes);
            ADD_FAILURE() << "accepted " << testing::PrintToString(c.Bytes);
        } catch (const Utf8Error& error) {
            EXPECT_EQ(error.Offset, c.Offset) << testing::PrintToString(c.Bytes);
        }
    }
}

TEST(Utf8, WritesAHalfPairAsTheReplacementCharacter) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(EncodeUtf8(u"a\xD800"s), "a" + replacement);
    EXPECT_EQ(EncodeUtf8(u"\xDC00z"s), replacement + "z");
    EXPECT_EQ(EncodeUtf8(u"\xD800\xD800\xDC00"s), replacement + "\xF0\x90\x80\x80");
}

} // namespace
