// SPDX-License-Identifier: MIT
// Tests of reading the inputs and of what is kept of them from one cycle to the next.
#include "engine/Fuzzify.h"

#include <cmath>

#include "engine/PrepareRuleBase.h"
#include "engine/RulesInUse.h"
#include "tests/core/EngineTest.h"
#include "tests/core/TestPlatform.h"
#include "tests/core/TestValues.h"

namespace Quorvane {
namespace {

using Definition::State;

/// Loads a system whose output tells the degree of A, and changes A to tell whether the input is
/// fuzzified: with A as loaded, Y(0) = 0; with A moved away, Y(0) = 8.
class FuzzifyTest : public EngineTest {
  protected:
    void LoadRamp() { Load(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1"); }

    static void MoveTermAway() {
        State().InputVariables->At(u"X").MF.At(u"A").Points = {100, 100, 100, 100};
    }

    /// Whether a cycle with this input, after one with the other, fuzzifies it.
    bool IsFuzzifiedAfter(const Value& first, const Value& second) {
        LoadRamp();
        const Value before = InferY(first);
        MoveTermAway();
        return !SameValue(before, InferY(second));
    }
};
QUORVANE_ON_BOTH_RUNNERS(FuzzifyTest);

TEST_P(FuzzifyTest, SkipsAnInputWhoseTextIsTheSame) {
    struct Case {
        Value First;
        Value Second;
        bool Fuzzified;
    };
    const Case cases[] = {
        {1.0, 1.0, false},
        {1.0, 1.25, true},
        {1.0, Text(u"1"), false},
        {1.0, Text(u"1.0"), true},
        {1.0, Text(u" 1"), true},
        {Text(u"1"), 1.0, false},
        {Text(u"1"), Text(u"1"), false},
        // The cached form is the number's: the text " 1" is read anew each time.
        {Text(u" 1"), 1.0, false},
        {Text(u" 1"), Text(u" 1"), true},
        {1.0, IntegerValue(1), false},
        {IntegerValue(1), 1.0, false},
        {IntegerValue(1), IntegerValue(1), false},
        {0.0, -0.0, false},
        // Equal at 15 digits, so the same; different at 15 digits, so not.
        {0.1 + 0.2, 0.3, false},
        {1.0, std::nextafter(1.0, 2), false},
        {1.0, 1.00000000000001, true},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(FixedText(test.First) + u" then " + FixedText(test.Second)));
        EXPECT_EQ(IsFuzzifiedAfter(test.First, test.Second), test.Fuzzified);
    }
}

TEST_P(FuzzifyTest, ANumberWhoseTextIsNotThatOfADoubleIsReadEachTime) {
    // A date is cached as its number, whose text is another.
    Load(u"X/99999/0/A,0,0,50000,50000", u"Y/16/0/P,0", u"X>A/Y<P:1");
    EXPECT_TRUE(IsNumber(0, InferY(DateValue())));
    MoveTermAway();
    EXPECT_TRUE(IsNumber(8, InferY(DateValue())));
}

TEST_P(FuzzifyTest, ComparesAndReadsTextsInTheUsersLocale) {
    const TestPlatform german({}, u",");
    const PlatformInUse inUse(german);
    EXPECT_FALSE(IsFuzzifiedAfter(1.5, Text(u"1,5")));
    EXPECT_FALSE(IsFuzzifiedAfter(Text(u"1,5"), 1.5));
    LoadRamp();
    // "1.5" is no number here.
    Put(u"X", Text(u"1.5"));
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    // Other forms are the platform's, which knows what a dozen is.
    EXPECT_TRUE(IsNumber(8, InferY(Text(u"a dozen"))));
}

TEST_P(FuzzifyTest, ReadsEveryKindOfNumber) {
    LoadRamp();
    EXPECT_TRUE(IsNumber(8, InferY(4.0)));
    EXPECT_TRUE(IsNumber(16, InferY(Text(u" 8 "))));
    EXPECT_TRUE(IsNumber(0, InferY(IntegerValue(0))));
    EXPECT_TRUE(IsNumber(8, InferY(BooleanTrue()))) << "-1 is outside";
    EXPECT_TRUE(IsNumber(16, InferY(TextValue(u"6"))));
}

TEST_P(FuzzifyTest, FailsForWhatIsNoNumber) {
    struct Case {
        Value Content;
        const char* Name;
    };
    const Case cases[] = {
        {Value(), "empty"},
        {Text(u""), "the empty text"},
        {Text(u"abc"), "a text"},
        {Text(u"1E999"), "a text beyond the range"},
        {NullValue(), "null"},
        {TextValue(u"abc"), "a text of the host"},
        {Text(u"NAN"), "not a number"},
        {Text(u"[NONE]"), "a marker"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.Name);
        LoadRamp();
        EXPECT_TRUE(IsNumber(0, InferY(0.0)));
        Put(u"X", test.Content);
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_EQ(Runner->CurrentErrorId(), 79);
        // Nothing was written; the next number works.
        EXPECT_TRUE(IsNumber(0, Output(u"Y")));
        EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    }
}

TEST_P(FuzzifyTest, FailsForAnEmptyInputEvenWhereOnlyNoneIsUsedOfIt) {
    Load(Ramp, Steps, u"X>[NONE]/Y<R:1");
    Put(u"X", Value());
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    EXPECT_TRUE(IsNumber(16, InferY(99.0)));
}

TEST_P(FuzzifyTest, FailsForAnInputThatAHostsDictionaryLacksWithoutAddingIt) {
    LoadRamp();
    const auto host = std::make_shared<ForeignDictionary>(KeyComparison::IgnoreCase);
    State().InputValues = host;
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    EXPECT_EQ(host->Count(), 0U);
    host->Put(u"x", 8.0);
    EXPECT_TRUE(IsNumber(16, InferY()));
    EXPECT_EQ(host->Count(), 1U);
}

TEST_P(FuzzifyTest, ReadsNoInputThatTheRulesDoNotName) {
    Load(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/1/0/T,0,0,1,1", Steps, u"X>A/Y<P:1|X>B/Y<R:1");
    Put(u"U", Text(u"abc"));
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
}

TEST_P(FuzzifyTest, AnInputThatFailedIsFuzzifiedAgain) {
    LoadRamp();
    EXPECT_TRUE(IsNumber(0, InferY(1.0)));
    Put(u"X", Text(u"abc"));
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    MoveTermAway();
    // The same text as before the failure: without it the input would be skipped.
    EXPECT_TRUE(IsNumber(8, InferY(1.0)));
}

TEST_P(FuzzifyTest, AnInputWhoseTermIsMissingFailsAgainUntilItIsBack) {
    LoadRamp();
    State().InputVariables->At(u"X").MF.Rekey(u"B", u"C");
    for (int i = 0; i < 2; ++i) {
        Put(u"X", 8.0);
        EXPECT_EQ(RaisedByInfer(), InvalidInference);
        EXPECT_EQ(Runner->CurrentErrorId(), 80);
    }
    State().InputVariables->At(u"X").MF.Rekey(u"C", u"B");
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
}

TEST_P(FuzzifyTest, InputsBeforeTheOneThatFailsStayValid) {
    Load(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/8/0/A,0,0,2,6", Steps,
         u"X>A;U>[NONE]/Y<P:1|X>B;U>[NONE]/Y<R:1");
    Put(u"X", 8.0);
    Put(u"U", Text(u"abc"));
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    State().InputVariables->At(u"X").MF.At(u"B").Points = {100, 100, 100, 100};
    Put(u"U", 1.0);
    EXPECT_TRUE(IsNumber(16, InferY())) << "X was fuzzified before U failed";
}

TEST_P(FuzzifyTest, TheTextEmptyEqualsAnInputThatWasNeverFuzzified) {
    LoadRamp();
    // Both degrees are still 1: (0 + 16) / 2.
    EXPECT_TRUE(IsNumber(8, InferY(Text(u"[EMPTY]"))));
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    Put(u"X", Text(u"[EMPTY]"));
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    // The failure emptied the cache, so now it is equal, and the degrees are those of before.
    EXPECT_TRUE(IsNumber(16, InferY()));
}

TEST_P(FuzzifyTest, DegreesSetBeforeAMissingTermCountForTheTextEmpty) {
    LoadRamp();
    EXPECT_TRUE(IsNumber(16, InferY(8.0)));
    State().InputVariables->At(u"X").MF.Rekey(u"B", u"C");
    Put(u"X", 0.0);
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    // A is 1 by now and B still is 1.
    EXPECT_TRUE(IsNumber(8, InferY(Text(u"[EMPTY]"))));
}

TEST_P(FuzzifyTest, FailsWithoutInputs) {
    LoadRamp();
    State().InputValues = nullptr;
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
    State().InputValues = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase);
    Put(u"X", 8.0);
    State().InputVariables.reset();
    EXPECT_EQ(RaisedByInfer(), InvalidInference);
    EXPECT_EQ(Runner->CurrentErrorId(), 79);
}

TEST_P(FuzzifyTest, ReportsInTheLanguageOfTheUser) {
    LoadRamp();
    State().LanguageId = 2052;
    Put(u"X", Value());
    EXPECT_EQ(RaisedByInfer(), (RaisedError{0x80040053, u"Quorvane 控制器", u"无效的推理。"}));
}

/// What Fuzzify itself raises, before the cycle words it anew.
class FuzzifyError : public CoreTest {
  protected:
    std::optional<RaisedError> RaisedWith(TextView input, const Value& value) {
        Parse(u"X/8/0/A,0,0,2,6", u"Y/16/0/P,0", u"X>A/Y<P:1");
        RunTime::PrepareRuleBase();
        State().InputValues->Put(u"X", value);
        State().InputVariables->Rekey(u"X", Text(input));
        RunTime::RulesInUse rules(*State().Tables);
        return Raised([&rules] { RunTime::Fuzzify(rules); });
    }
};

TEST_F(FuzzifyError, IsItsOwnWhateverIsWrongWithAnInput) {
    EXPECT_EQ(RaisedWith(u"X", 1.0), std::nullopt);
    EXPECT_EQ(RaisedWith(u"X", {}), InvalidInputSignal);
    EXPECT_EQ(RaisedWith(u"X", Text(u"broken")), InvalidInputSignal);
    EXPECT_EQ(RaisedWith(u"X", NullValue()), InvalidInputSignal);
    EXPECT_EQ(RaisedWith(u"Gone", 1.0), InvalidInputSignal);
}

} // namespace
} // namespace Quorvane
