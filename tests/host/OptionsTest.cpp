// SPDX-License-Identifier: MIT
// OptionsTest: the command line.
#include "host/container/Options.h"

#include <gtest/gtest.h>

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;

TEST(Options, ReadsEveryOption) {
    const Options options =
        ParseOptions({u"--design", u"--new", u"--locale", u"0x804", u"a.form", u"--output", u"out",
                      u"--save", u"b.form", u"--dll", u"c.ocx", u"N=1", u"empty=", u"eq=a=b"});
    EXPECT_TRUE(options.Design);
    EXPECT_TRUE(options.New);
    EXPECT_EQ(options.Locale, LCID{0x804});
    EXPECT_EQ(options.Form, u"a.form");
    EXPECT_EQ(options.Output, u"out");
    EXPECT_EQ(options.Save, u"b.form");
    EXPECT_EQ(options.Dll, u"c.ocx");
    EXPECT_EQ(options.Values,
              (std::map<Text, Text>{{u"N", u"1"}, {u"empty", u""}, {u"eq", u"a=b"}}));
}

TEST(Options, RunsAFormByDefault) {
    const Options options = ParseOptions({u"a.form"});
    EXPECT_FALSE(options.Design);
    EXPECT_FALSE(options.New);
    EXPECT_FALSE(options.Help);
    EXPECT_EQ(options.Output, u".");
    EXPECT_FALSE(options.Locale || options.Save || options.Dll);
}

TEST(Options, HelpNeedsNoForm) {
    EXPECT_TRUE(ParseOptions({u"--help"}).Help);
}

TEST(Options, RefusesWhatItDoesNotUnderstand) {
    const std::vector<Text> cases[] = {
        {},
        {u"--what", u"a.form"},
        {u"-design", u"a.form"},
        {u"a.form", u"b.form"},
        {u"a.form", u"=1"},
        {u"a.form", u"--output"},
        {u"a.form", u"--output", u""},
        {u"a.form", u"--locale", u"German"},
        {u"a.form", u"--locale", u"1033x"},
        {u"a.form", u"--locale", u"-1"},
        {u"--help", u"--what"},
    };
    for (const auto& arguments : cases)
        EXPECT_THROW(ParseOptions(arguments), UsageError)
            << (arguments.empty() ? "nothing" : testing::PrintToString(arguments.back()));
}

} // namespace
