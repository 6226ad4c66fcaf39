// SPDX-License-Identifier: MIT
// OptionsTest: the command line.
#include "host/container/Options.h"

#include <gtest/gtest.h>

namespace {

using namespace Quorvane::Host;

TEST(Options, ReadsEveryOption) {
    const Options options =
        ParseOptions({L"--design", L"--new", L"--locale", L"0x804", L"a.form", L"--output", L"out",
                      L"--save", L"b.form", L"--dll", L"c.ocx", L"N=1", L"empty=", L"eq=a=b"});
    EXPECT_TRUE(options.Design);
    EXPECT_TRUE(options.New);
    EXPECT_EQ(options.Locale, LCID{0x804});
    EXPECT_EQ(options.Form, L"a.form");
    EXPECT_EQ(options.Output, L"out");
    EXPECT_EQ(options.Save, L"b.form");
    EXPECT_EQ(options.Dll, L"c.ocx");
    EXPECT_EQ(options.Values, (std::map<std::wstring, std::wstring>{
                                  {L"N", L"1"}, {L"empty", L""}, {L"eq", L"a=b"}}));
}

TEST(Options, RunsAFormByDefault) {
    const Options options = ParseOptions({L"a.form"});
    EXPECT_FALSE(options.Design);
    EXPECT_FALSE(options.New);
    EXPECT_FALSE(options.Help);
    EXPECT_EQ(options.Output, L".");
    EXPECT_FALSE(options.Locale || options.Save || options.Dll);
}

TEST(Options, HelpNeedsNoForm) {
    EXPECT_TRUE(ParseOptions({L"--help"}).Help);
}

TEST(Options, RefusesWhatItDoesNotUnderstand) {
    const std::vector<std::wstring> cases[] = {
        {},
        {L"--what", L"a.form"},
        {L"-design", L"a.form"},
        {L"a.form", L"b.form"},
        {L"a.form", L"=1"},
        {L"a.form", L"--output"},
        {L"a.form", L"--output", L""},
        {L"a.form", L"--locale", L"German"},
        {L"a.form", L"--locale", L"1033x"},
        {L"a.form", L"--locale", L"-1"},
        {L"--help", L"--what"},
    };
    for (const auto& arguments : cases)
        EXPECT_THROW(ParseOptions(arguments), UsageError)
            << (arguments.empty() ? "nothing" : testing::PrintToString(arguments.back()));
}

} // namespace
