// SPDX-License-Identifier: MIT
// Tests of the validation routines: which input is refused, with which message, in which order.
#include "editor/checks/DesignTime.h"

#include "editor/checks/Checks.h"
#include "tests/core/TestPlatform.h"
#include "tests/editor/EditorTest.h"

namespace Quorvane::DesignTime {
namespace {

using Definition::State;
using Editor::PromptStyle;
using Editor::Refusal;
using Editor::ShownPrompts;

class DesignTimeTest : public Editor::EditorTest {};

/// An accepted input has no message.
constexpr TextView Accepted;

constexpr TextView Duplicate = u"The identifier duplicates!";
constexpr TextView TooLong = u"The maximum length of the identiier is 10!";
constexpr TextView LeadingDigit = u"The identiier cannot begin with a digit!";
constexpr TextView Forbidden = u"Only Alphanumeric characters and _ are allowed!";

ShownPrompts Expected(TextView message) {
    return message.empty() ? ShownPrompts() : Refusal(Text(message));
}

TEST_F(DesignTimeTest, ChecksIdentifiersInOrder) {
    struct Case {
        TextView Old;
        TextView New;
        TextView Message;
    };
    const Case cases[] = {
        {u"speed", u"speed", Accepted},
        {u"speed", u"SPEED", Accepted},
        {u"9 odd loaded name", u"9 ODD loaded name", Accepted},
        {u"", u"", Accepted},
        {u"old", u"", Accepted},
        {u"old", u"new", Accepted},
        {u"old", u"ABCDEFGHIJ", Accepted},
        {u"old", u"ABCDEFGHIJK", TooLong},
        {u"old", u"_9", Accepted},
        {u"old", u"a_9", Accepted},
        {u"old", u"azAZ09_", Accepted},
        {u"old", u"_", Accepted},
        {u"old", u"9lives", LeadingDigit},
        {u"old", u"0", LeadingDigit},
        {u"old", u"a-b", Forbidden},
        {u"old", u"a b", Forbidden},
        {u"old", u" a", Forbidden},
        {u"old", u"-9", Forbidden},
        {u"old", u"温度", Forbidden},
        {u"old", u"a温", Forbidden},
        {u"old", u"é", Forbidden},
        {u"old", u"Ａ", Forbidden},
        {u"old", u"０", Forbidden},
        {u"old", u"taken", Duplicate},
        {u"old", u"TAKEN", Duplicate},
        // The first check that fails decides.
        {u"old", u"taken and too long", Duplicate},
        {u"old", u"9 is too long", TooLong},
        {u"old", u"a-b-c-d-e-f", TooLong},
        {u"old", u"9-", LeadingDigit},
    };
    StringKeyedDictionary<Text> names(KeyComparison::IgnoreCase);
    for (const TextView name : {u"speed", u"taken", u"taken and too long"}) {
        names.Add(Text(name), {});
    }
    for (const auto& [oldName, newName, message] : cases) {
        SCOPED_TRACE(Narrow(newName));
        EXPECT_EQ(ValidateIdentifier(oldName, newName, names, Prompts), message.empty());
        EXPECT_EQ(Prompts.Take(), Expected(message));
    }
}

TEST_F(DesignTimeTest, AllowsNoNeighbourOfTheAllowedCharacters) {
    for (const char16_t character : Text(u"/:@[^`{\x7F\x80")) {
        EXPECT_FALSE(ValidateIdentifier(u"old", Text(u"a") + character, false, Prompts));
        EXPECT_EQ(Prompts.Take(), Refusal(Text(Forbidden))) << static_cast<int>(character);
    }
}

TEST_F(DesignTimeTest, AcceptsAChangeOfCaseEvenWhereTheNameIsTaken) {
    StringKeyedDictionary<Text> names(KeyComparison::Exact);
    names.Add(u"SPEED", {});
    EXPECT_TRUE(ValidateIdentifier(u"speed", u"SPEED", names, Prompts));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(DesignTimeTest, FindsDuplicatesAsTheDictionaryComparesKeys) {
    StringKeyedDictionary<Text> names(KeyComparison::Exact);
    names.Add(u"taken", {});
    EXPECT_TRUE(ValidateIdentifier(u"old", u"TAKEN", names, Prompts));
    EXPECT_FALSE(ValidateIdentifier(u"old", u"taken", names, Prompts));
}

TEST_F(DesignTimeTest, ChecksNumbersAgainstInclusiveLimits) {
    struct Case {
        TextView Number;
        std::optional<double> Lower;
        std::optional<double> Upper;
        TextView Message;
    };
    constexpr std::optional<double> none;
    constexpr TextView notANumber = u"Should be a number!";
    const Case cases[] = {
        {u"0", 0, 1, Accepted},
        {u"1", 0, 1, Accepted},
        {u"0.5", 0, 1, Accepted},
        {u" 1 ", 0, 1, Accepted},
        {u"1.5", 0, 1, u"Enter a number less than 1!"},
        {u"-0.1", 0, 1, u"Enter a number greater than 0!"},
        {u"1.0000001", 0, 1, u"Enter a number less than 1!"},
        {u"abc", 0, 1, notANumber},
        {u"", 0, 1, notANumber},
        {u"1;2", 0, 1, notANumber},
        {u"nan", none, none, notANumber},
        {u"1E400", none, none, notANumber},
        {u"1E300", none, none, Accepted},
        {u"-1E300", none, 1, Accepted},
        {u"2", none, 1.5, u"Enter a number less than 1.5!"},
        {u"1E300", -0.25, none, Accepted},
        {u"-2", -0.25, none, u"Enter a number greater than -0.25!"},
        {u"-2", 1E15, none, u"Enter a number greater than 1E+15!"},
        {u"0", 1E-12, none, u"Enter a number greater than 1E-12!"},
        // Where both limits are violated, the lower one is named.
        {u"2", 3, 1, u"Enter a number greater than 3!"},
    };
    for (const auto& [number, lower, upper, message] : cases) {
        SCOPED_TRACE(Narrow(number));
        EXPECT_EQ(ValidateNumber(number, lower, upper, Prompts), message.empty());
        EXPECT_EQ(Prompts.Take(), Expected(message));
    }
}

TEST_F(DesignTimeTest, ReadsAndShowsNumbersInTheUsersForm) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    EXPECT_TRUE(ValidateNumber(u"0,5", 0.0, 1.0, Prompts));
    EXPECT_TRUE(ValidateNumber(u"a dozen", 0.0, 12.0, Prompts));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
    EXPECT_FALSE(ValidateNumber(u"0,5", 0.75, std::nullopt, Prompts));
    EXPECT_EQ(Prompts.Take(), Refusal(u"Enter a number greater than 0,75!"));
    EXPECT_EQ(NormalNumberText(u"0,50"), u"0,5");
    EXPECT_EQ(NormalNumberText(u"a dozen"), u"12");
}

TEST_F(DesignTimeTest, WritesNumbersTheOneWay) {
    const std::pair<TextView, TextView> cases[] = {
        {u"0.50", u"0.5"}, {u"1e-5", u"1E-05"}, {u"-0", u"0"},
        {u" 7 ", u"7"},    {u"abc", u"abc"},    {u"", u""},
    };
    for (const auto& [typed, written] : cases) {
        EXPECT_EQ(NormalNumberText(typed), written);
    }
}

TEST_F(DesignTimeTest, TakesBoundsThatDifferAsNumbers) {
    struct Case {
        TextView Lower;
        TextView Upper;
        bool IsAccepted;
    };
    const Case cases[] = {
        {u"1", u"2", true},   {u"2", u"1", true},       {u"1", u"1.0", false},
        {u"-0", u"0", false}, {u"1E3", u"1000", false}, {u"0", u"1E-12", true},
    };
    for (const auto& [lower, upper, isAccepted] : cases) {
        SCOPED_TRACE(Narrow(lower) + " and " + Narrow(upper));
        EXPECT_EQ(ValidateBoundsDiffer(lower, upper, Prompts), isAccepted);
        EXPECT_EQ(
            Prompts.Take(),
            Expected(isAccepted ? Accepted : u"The upper bound and lower bound cannot be equal!"));
    }
}

TEST_F(DesignTimeTest, PassesOnAFailedConversionOfABoundInTheEditorsName) {
    const auto check = [&](TextView text) {
        return Raised([&] { ValidateBoundsDiffer(text, u"1", Prompts); });
    };
    EXPECT_EQ(check(u"x"), (RaisedError{0x800A000D, u"Quorvane Inference System", u""}));
    EXPECT_EQ(check(u"1E400"), (RaisedError{0x800A0006, u"Quorvane Inference System", u""}));
    State().LanguageId = Editor::Chinese;
    EXPECT_EQ(check(u"x"), (RaisedError{0x800A000D, u"Quorvane 推理系统", u""}));
    EXPECT_EQ(Prompts.Take(), ShownPrompts());
}

TEST_F(DesignTimeTest, ShowsItsMessagesInChinese) {
    State().LanguageId = Editor::Chinese;
    const std::pair<std::function<bool()>, Text> cases[] = {
        {[&] { return ValidateIdentifier(u"a", u"b", true, Prompts); }, u"标识符重复！"},
        {[&] { return ValidateIdentifier(u"a", u"b-", false, Prompts); },
         u"只能使用字符、数字和下划线_！"},
        {[&] { return ValidateNumber(u"x", 0.0, 1.0, Prompts); }, u"应该为一数值！"},
        {[&] { return ValidateNumber(u"-1", 0.0, 1.0, Prompts); }, u"输入一个大于0的数！"},
        {[&] { return ValidateNumber(u"2", 0.0, 1.0, Prompts); }, u"输入一个小于1的数！"},
        {[&] { return ValidateIdentifier(u"a", u"elevenchars", false, Prompts); },
         u"标识符的最大长度为10"},
        {[&] { return ValidateIdentifier(u"a", u"1b", false, Prompts); },
         u"标识符不能以数字起始！"},
        {[&] { return ValidateBoundsDiffer(u"1", u"1", Prompts); }, u"上限不能与下限相等！"},
    };
    for (const auto& [check, message] : cases) {
        EXPECT_FALSE(check());
        EXPECT_EQ(Prompts.Take(),
                  (ShownPrompts{{message, PromptStyle::Critical, u"Quorvane 推理系统"}}));
    }
}

TEST_F(DesignTimeTest, NumbersItsErrorsByTheirMessages) {
    struct Case {
        std::function<void()> Check;
        std::uint32_t Number;
        TextView Message;
    };
    const Case cases[] = {
        {[] { CheckIdentifier(u"a", u"b", true); }, 0x80040046, Duplicate},
        {[] { CheckIdentifier(u"a", u"b-", false); }, 0x80040047, Forbidden},
        {[] { CheckNumber(u"x", {}, {}); }, 0x80040048, u"Should be a number!"},
        {[] { CheckNumber(u"1", 2.0, {}); }, 0x80040049, u"Enter a number greater than 2!"},
        {[] { CheckNumber(u"3", {}, 2.0); }, 0x8004004A, u"Enter a number less than 2!"},
        {[] { CheckIdentifier(u"a", u"elevenchars", false); }, 0x8004004B, TooLong},
        {[] { CheckIdentifier(u"a", u"1b", false); }, 0x8004004C, LeadingDigit},
        {[] { CheckBoundsDiffer(u"1", u"1"); }, 0x8004004D,
         u"The upper bound and lower bound cannot be equal!"},
    };
    for (const auto& [check, number, message] : cases) {
        EXPECT_EQ(Raised(check), (RaisedError{number, u"", Text(message)}));
    }
}

TEST_F(DesignTimeTest, TellsRefusalsFromOtherErrors) {
    const std::pair<std::uint32_t, bool> cases[] = {
        {0x80040045, false}, {0x80040046, true},  {0x8004004D, true},
        {0x8004004E, false}, {0x800A000D, false}, {70, false},
    };
    for (const auto& [number, isRefusal] : cases) {
        EXPECT_EQ(IsRefusal(FisError(number, {}, {})), isRefusal) << number;
    }
}

TEST_F(DesignTimeTest, ComputesExtentsFromTheFeetOfTheTerms) {
    Parse(u"A/10/0/T1,2,3,4,5;T2,4,6,7,9|B/10/0/T,0,0,10,10", u"A/10/0/S1,7;S2,3", u"A>T1/A<S1:1");
    for (const auto side : {&State().InputVariables, &State().OutputVariables}) {
        LinguisticVariable& variable = (*side)->At(u"a");
        variable.Min = variable.Max = 99;
    }
    UpdateInputExtent(u"A");
    const LinguisticVariable& input = State().InputVariables->At(u"A");
    const LinguisticVariable& output = State().OutputVariables->At(u"A");
    EXPECT_EQ(std::pair(input.Min, input.Max), std::pair(2.0, 9.0));
    EXPECT_EQ(std::pair(output.Min, output.Max), std::pair(99.0, 99.0));
    UpdateOutputExtent(u"A");
    EXPECT_EQ(std::pair(output.Min, output.Max), std::pair(3.0, 7.0));
}

TEST_F(DesignTimeTest, CrossesTheExtentOfAVariableWithoutTerms) {
    Parse(u"A/10/-5/T,2,3,4,5", u"B/10/-5/S,7", u"A>T/B<S:1");
    State().InputVariables->At(u"A").MF.RemoveAll();
    State().OutputVariables->At(u"B").MF.RemoveAll();
    UpdateInputExtent(u"A");
    UpdateOutputExtent(u"B");
    for (const auto* variable :
         {State().InputVariables->Find(u"A"), State().OutputVariables->Find(u"B")}) {
        EXPECT_EQ(std::pair(variable->Min, variable->Max), std::pair(10.0, -5.0));
    }
}

TEST_F(DesignTimeTest, RaisesForTheExtentOfNoVariable) {
    const auto noModel = PlatformError(RuntimeError::ObjectNotSet);
    EXPECT_EQ(Raised([] { UpdateInputExtent(u"A"); }), noModel);
    EXPECT_EQ(Raised([] { UpdateOutputExtent(u"A"); }), noModel);
    Parse(u"A/1/0/T,0,0,1,1", u"B/1/0/S,1", u"A>T/B<S:1");
    const auto missing = PlatformError(RuntimeError::MissingKey);
    EXPECT_EQ(Raised([] { UpdateInputExtent(u"B"); }), missing);
    EXPECT_EQ(Raised([] { UpdateOutputExtent(u"A"); }), missing);
}

} // namespace
} // namespace Quorvane::DesignTime
