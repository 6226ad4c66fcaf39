// SPDX-License-Identifier: MIT
// Tests of hosts whose dictionaries and values use the control while they are being read.
#include <functional>
#include <new>
#include <stdexcept>

#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "engine/PreparedRules.h"
#include "model/ParseDefinition.h"
#include "tests/core/EngineTest.h"
#include "tests/core/TestValues.h"

namespace Quorvane {
namespace {

using Definition::State;

/// Code that runs in a destructor must not raise.
void Quietly(const std::function<void()>& code) {
    try {
        code();
    } catch (const FisError&) {
        SUCCEED() << "nobody to tell";
    }
}

/// Something that a host's code does to the state of the process.
struct Deed {
    const char* Name;
    void (*Do)();
};

const Deed Deeds[] = {
    {"ParsesTheSameTexts", [] { Main::ParseDefinition(); }},
    {"ParsesAndPreparesTheSameTexts",
     [] {
         Main::ParseDefinition();
         RunTime::PrepareRuleBase();
     }},
    {"LoadsAnotherSystem",
     [] {
         Parse(u"Z/1/0/T,0,0,1,1", u"W/1/0/V,1", u"Z>T/W<V:1");
         RunTime::PrepareRuleBase();
     }},
    {"LoadsAnEmptySystem",
     [] {
         Parse(u"", u"", u"");
         RunTime::PrepareRuleBase();
     }},
    {"Prepares", [] { RunTime::PrepareRuleBase(); }},
    {"PreparesInVain",
     [] {
         State().RuleBase->Add(u"bad");
         EXPECT_EQ(Raised(RunTime::PrepareRuleBase), InvalidRule);
         State().RuleBase->Remove(u"bad");
     }},
    {"AssignsNewInputs",
     [] { State().InputValues = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase); }},
    {"AssignsNewDefaults",
     [] {
         State().DefaultOutputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
         RunTime::PrepareRuleBase();
     }},
    {"EndsTheControl", Definition::ReleaseModel},
    {"ResetsEverything", Definition::Reset},
    {"RemovesVariables",
     [] {
         State().InputVariables->RemoveAll();
         State().OutputVariables->RemoveAll();
     }},
    {"EditsTerms",
     [] {
         for (auto& [name, variable] : *State().InputVariables) {
             variable.MF.Remove(u"A");
             variable.MF.Add(u"C", {u"C", {0, 0, 1, 1}});
             variable.MF.Rekey(u"C", u"A");
         }
     }},
    {"RunsACycle",
     [] { EXPECT_TRUE(Raised(RunTime::Infer).value_or(InvalidInference) == InvalidInference); }},
    {"EmptiesTheOutputs", [] { State().OutputValues->Items.RemoveAll(); }},
    {"Raises", [] { throw FisError(RuntimeError::Overflow); }},
};

/// Where the host's code runs.
struct Moment {
    const char* Name;
    /// Puts a system in place whose next cycle runs the code.
    void (*Arrange)(std::function<void()> code);
};

std::shared_ptr<ForeignDictionary> MakeForeign(KeyComparison comparison,
                                               std::function<void()> onRead) {
    return std::make_shared<ForeignDictionary>(
        comparison, [onRead = std::move(onRead)](TextView) { onRead(); });
}

const Moment Moments[] = {
    {"AnInputIsRead",
     [](std::function<void()> code) {
         State().InputValues = MakeForeign(KeyComparison::IgnoreCase, std::move(code));
         State().InputValues->Put(u"X", 3.0);
         State().InputValues->Put(u"U", 5.0);
     }},
    {"AnInputIsConverted",
     [](std::function<void()> code) {
         const auto number = [code = std::move(code)] {
             code();
             return 3.0;
         };
         State().InputValues->Put(u"X", MakeHostValue([] { return Text(u"3"); }, number));
     }},
    {"AnInputIsCompared",
     [](std::function<void()> code) {
         const auto text = [code = std::move(code)] {
             code();
             return Text(u"3");
         };
         State().InputValues->Put(u"X", MakeHostValue(text, [] { return 3.0; }));
     }},
    {"ADefaultIsRead",
     [](std::function<void()> code) {
         State().DefaultOutputValues = MakeForeign(KeyComparison::Exact, std::move(code));
         State().DefaultOutputValues->Put(u"Y", 3.0);
         State().InputValues->Put(u"X", 99.0);
     }},
    {"AnOutputIsReplaced",
     [](std::function<void()> code) {
         // The former value runs the code as it goes.
         const std::shared_ptr<void> lastWords(nullptr,
                                               [code = std::move(code)](void*) { Quietly(code); });
         const auto text = [lastWords] { return Text(); };
         State().OutputValues->Put(u"Y", MakeHostValue(text, [] { return 0.0; }));
     }},
};

class ReentrancyTest : public CoreTest,
                       public testing::WithParamInterface<std::tuple<Moment, Deed>> {
  protected:
    static void LoadAndInfer(double x, double u) {
        Parse(u"X/8/0/A,0,0,2,6;B,2,6,8,8|U/8/0/A,0,0,2,6;B,2,6,8,8", Steps,
              u"X>A;U>A/Y<P:1|X>B;U>B/Y<R:1");
        RunTime::PrepareRuleBase();
        State().InputValues->Put(u"X", x);
        State().InputValues->Put(u"U", u);
        RunTime::Infer();
    }
};

TEST_P(ReentrancyTest, IsSurvived) {
    LoadAndInfer(1, 1);
    int runs = 0;
    const auto& [moment, deed] = GetParam();
    moment.Arrange([&runs, &deed = deed] {
        if (++runs == 1) {
            deed.Do();
        }
    });
    EXPECT_EQ(Raised(RunTime::Infer).value_or(InvalidInference), InvalidInference);
    EXPECT_GE(runs, 1) << "the code of the host did not run";
    // Whatever was left behind, the next system works.
    LoadAndInfer(8, 8);
    EXPECT_TRUE(IsNumber(16, State().OutputValues->Get(u"Y")));
}

INSTANTIATE_TEST_SUITE_P(, ReentrancyTest,
                         testing::Combine(testing::ValuesIn(Moments), testing::ValuesIn(Deeds)),
                         [](const auto& run) {
                             return std::string(std::get<1>(run.param).Name) + "While" +
                                    std::get<0>(run.param).Name;
                         });

class ReentrancyOutcomeTest : public CoreTest {
  protected:
    ReentrancyOutcomeTest() {
        Parse(Ramp, Steps, u"X>A/Y<P:1|X>B/Y<R:1");
        RunTime::PrepareRuleBase();
    }
};

TEST_F(ReentrancyOutcomeTest, ACycleInsideACycleDisturbsNeither) {
    const auto host = std::make_shared<ForeignDictionary>(KeyComparison::IgnoreCase, [](TextView) {
        const auto outer = State().InputValues;
        State().InputValues = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase);
        State().InputValues->Put(u"X", 0.0);
        RunTime::Infer();
        EXPECT_TRUE(IsNumber(0, State().OutputValues->Get(u"Y")));
        State().InputValues = outer;
    });
    host->Put(u"X", 8.0);
    State().InputValues = host;
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(16, State().OutputValues->Get(u"Y")));
}

TEST_F(ReentrancyOutcomeTest, ACycleEndsOnTheTablesItBeganWith) {
    const auto host = std::make_shared<ForeignDictionary>(KeyComparison::IgnoreCase, [](TextView) {
        State().OutputVariables->At(u"Y").MF.At(u"R").Points.fill(4);
        RunTime::PrepareRuleBase();
    });
    host->Put(u"X", 8.0);
    State().InputValues = host;
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(16, State().OutputValues->Get(u"Y"))) << "the old point";
    State().InputValues = std::make_shared<OwnValueDictionary>(KeyComparison::IgnoreCase);
    State().InputValues->Put(u"X", 8.0);
    RunTime::Infer();
    EXPECT_TRUE(IsNumber(4, State().OutputValues->Get(u"Y"))) << "the new one";
}

TEST_F(ReentrancyOutcomeTest, PreparingLeavesASystemThatAHostLoadsMeanwhile) {
    int runs = 0;
    State().DefaultOutputValues = MakeForeign(KeyComparison::Exact, [&runs] {
        if (++runs == 1) {
            Parse(u"Z/1/0/T,0,0,1,1", u"W/1/0/V,1", u"Z>T/W<V:1");
            State().DefaultOutputValues =
                std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
            RunTime::PrepareRuleBase();
            RunTime::Infer();
        }
    });
    RunTime::PrepareRuleBase();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(KeysOf(State().OutputValues->Items), std::vector<Text>{u"W"});
    EXPECT_EQ(State().Tables->UsedInputs.front().Name, u"Z");
}

TEST_F(ReentrancyOutcomeTest, AnErrorOfAHostFailsTheCycle) {
    State().InputValues = MakeForeign(KeyComparison::IgnoreCase,
                                      [] { throw FisError(0x80004005, u"a host", u"its error"); });
    EXPECT_EQ(Raised(RunTime::Infer), InvalidInference);
    EXPECT_EQ(State().CurrentErrorId, 79);
}

TEST_F(ReentrancyOutcomeTest, AnyOtherFailureOfAHostDoesSoToo) {
    State().InputValues = MakeForeign(KeyComparison::IgnoreCase,
                                      [] { throw std::runtime_error("no error of ours"); });
    EXPECT_EQ(Raised(RunTime::Infer), InvalidInference);
}

TEST_F(ReentrancyOutcomeTest, RunningOutOfMemoryStaysWhatItIs) {
    State().InputValues = MakeForeign(KeyComparison::IgnoreCase, [] { throw std::bad_alloc(); });
    EXPECT_THROW(RunTime::Infer(), std::bad_alloc);
}

TEST_F(ReentrancyOutcomeTest, ParsingSurvivesInputsThatParseAsTheyGo) {
    State().InputValues = {new OwnValueDictionary(KeyComparison::Exact),
                           [](ValueDictionary* dictionary) {
                               delete dictionary;
                               Parse(u"Z/1/0/T,0,0,1,1", u"W/1/0/V,1", u"Z>T/W<V:1");
                           }};
    Parse(Ramp, Steps, u"X>A/Y<P:1");
    // The inner parse is the later one, and whole.
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"Z"});
    EXPECT_TRUE(IsNumber(0, State().InputValues->Get(u"Z")));
    EXPECT_TRUE(IsNumber(0.5, State().DefaultOutputValues->Get(u"W")));
    EXPECT_EQ(KeysOf(*State().RuleBase), std::vector<Text>{u"Z>T/W<V:1"});
    RunTime::PrepareRuleBase();
}

} // namespace
} // namespace Quorvane
