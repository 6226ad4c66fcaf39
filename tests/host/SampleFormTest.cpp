// SPDX-License-Identifier: MIT
// SampleFormTest: the sample forms say in their comments what their encoded texts hold.
#include "host/formfile/FormFile.h"

#include <gtest/gtest.h>

#include <charconv>

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;

// Two hexadecimal digits for each character, the low digit first.
Text Decode(const Text& encoded) {
    Text text;
    for (std::size_t i = 0; i + 1 < encoded.size(); i += 2) {
        const char digits[] = {static_cast<char>(encoded[i + 1]), static_cast<char>(encoded[i])};
        unsigned code = 0;
        const auto [end, error] = std::from_chars(digits, digits + 2, code, 16);
        EXPECT_TRUE(error == std::errc() && end == digits + 2) << i;
        text += static_cast<char16_t>(code);
    }
    return text;
}

// The indented comment lines below the one that begins with `heading`, put together.
Text CommentBelow(const FormFile& form, const Text& heading) {
    Text text;
    bool isBelow = false;
    for (const Text& comment : form.Comments) {
        const bool isIndented = comment.starts_with(u"     ");
        if (isBelow && isIndented)
            text += comment.substr(5);
        isBelow = comment.starts_with(heading) || (isBelow && isIndented);
    }
    return text;
}

TEST(SampleForm, CommentsShowWhatTheEncodedTextsHold) {
    int forms = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUORVANE_SAMPLES)) {
        if (entry.path().extension() != ".form")
            continue;
        ++forms;
        const FormFile form = ReadFormFile(entry.path());
        for (const char16_t* const key : {u"Inputs", u"Outputs", u"Rules"}) {
            const FormProperty* const property = form.Controls.at(0).Properties.Find(key);
            ASSERT_NE(property, nullptr);
            const Text plain = CommentBelow(form, u" " + Text(key) + u":");
            EXPECT_FALSE(plain.empty());
            EXPECT_EQ(Decode(std::get<Text>(property->Value)), plain) << entry.path();
        }
    }
    EXPECT_GT(forms, 0);
}

TEST(SampleForm, SamplesAreWrittenAsTheHostWritesThem) {
    for (const auto& entry : std::filesystem::directory_iterator(QUORVANE_SAMPLES)) {
        if (entry.path().extension() != ".form")
            continue;
        const FormFile form = ReadFormFile(entry.path());
        EXPECT_EQ(ParseFormFile(WriteFormFile(form)), form) << entry.path();
    }
}

} // namespace
