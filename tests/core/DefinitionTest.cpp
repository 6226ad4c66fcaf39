// SPDX-License-Identifier: MIT
// Tests of the process-wide state and of what releases it.
#include "shared/Definition.h"

#include "engine/CurrentErrorText.h"
#include "engine/PrepareRuleBase.h"
#include "model/ParseDefinition.h"
#include "shared/TermColors.h"
#include "tests/core/CoreTest.h"
#include "tests/core/TestPlatform.h"
#include "tests/core/TestValues.h"

namespace Quorvane {
namespace {

using Definition::ProcessState;
using Definition::State;

class DefinitionTest : public CoreTest {};

TEST_F(DefinitionTest, ANewProcessHoldsNothing) {
    EXPECT_FALSE(Definition::IsHeld());
    EXPECT_EQ(State().LanguageId, 0);
    EXPECT_EQ(State().CurrentErrorId, 0);
    EXPECT_EQ(RunTime::CurrentErrorText(), u"");
    EXPECT_EQ(&State(), &State());
}

TEST_F(DefinitionTest, IsHeldByAnyPartOfTheState) {
    using Change = void (*)(ProcessState&);
    const Change changes[] = {
        [](ProcessState& state) { state.InputVariables.emplace(KeyComparison::IgnoreCase); },
        [](ProcessState& state) { state.OutputVariables.emplace(KeyComparison::IgnoreCase); },
        [](ProcessState& state) { state.RuleBase.emplace(KeyComparison::IgnoreCase); },
        [](ProcessState& state) {
            state.InputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
        },
        [](ProcessState& state) {
            state.DefaultOutputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
        },
        [](ProcessState& state) {
            state.OutputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
        },
        [](ProcessState& state) {
            state.ErrorOutputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
        },
        [](ProcessState& state) { state.LanguageId = 2052; },
        [](ProcessState& state) { state.InputsText = u"14"; },
        [](ProcessState& state) { state.OutputsText = u"14"; },
        [](ProcessState& state) { state.RulesText = u"14"; },
    };
    for (const Change change : changes) {
        change(State());
        EXPECT_TRUE(Definition::IsHeld());
        Definition::Reset();
        EXPECT_FALSE(Definition::IsHeld());
    }
}

TEST_F(DefinitionTest, IsHeldByPreparedTablesAlone) {
    Parse(u"", u"", u"");
    RunTime::PrepareRuleBase();
    Definition::ReleaseModel();
    State().DefaultOutputValues = nullptr;
    EXPECT_TRUE(Definition::IsHeld());
}

TEST_F(DefinitionTest, ResetKeepsNothing) {
    Parse(u"X/1/0/A,0,0,1,1", u"Y/1/0/B,1", u"X>A/Y<B:1");
    RunTime::PrepareRuleBase();
    State().LanguageId = 2052;
    State().HelpFile = u"help";
    Definition::Reset();
    EXPECT_FALSE(Definition::IsHeld());
    EXPECT_EQ(State().CurrentErrorId, 0);
    EXPECT_EQ(State().HelpFile, u"");
}

TEST_F(DefinitionTest, ReleasingTheModelKeepsDefaultsTablesAndTexts) {
    Parse(u"X/1/0/A,0,0,1,1", u"Y/1/0/B,1", u"X>A/Y<B:1");
    RunTime::PrepareRuleBase();
    const auto defaults = State().DefaultOutputValues;
    const auto tables = State().Tables;
    const Text inputs = State().InputsText;
    Definition::ReleaseModel();
    EXPECT_FALSE(State().InputVariables);
    EXPECT_FALSE(State().OutputVariables);
    EXPECT_FALSE(State().RuleBase);
    EXPECT_FALSE(State().InputValues);
    EXPECT_FALSE(State().OutputValues);
    EXPECT_EQ(State().DefaultOutputValues, defaults);
    EXPECT_EQ(State().Tables, tables);
    EXPECT_EQ(State().InputsText, inputs);
    EXPECT_TRUE(Definition::IsHeld());
}

TEST_F(DefinitionTest, GivingUpReleasesNothingAndKeepsTextsAndLanguage) {
    Parse(u"X/1/0/A,0,0,1,1", u"Y/1/0/B,1", u"X>A/Y<B:1");
    RunTime::PrepareRuleBase();
    State().LanguageId = 2052;
    State().HelpFile = u"help";
    State().ErrorOutputValues = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
    const std::weak_ptr<void> held[] = {State().InputValues, State().DefaultOutputValues,
                                        State().OutputValues, State().ErrorOutputValues,
                                        State().Tables};
    const Text inputs = State().InputsText;
    Definition::GiveUp();
    for (const auto& dictionary : held) {
        EXPECT_FALSE(dictionary.expired());
    }
    EXPECT_FALSE(State().InputVariables);
    EXPECT_FALSE(State().InputValues);
    EXPECT_FALSE(State().DefaultOutputValues);
    EXPECT_FALSE(State().OutputValues);
    EXPECT_FALSE(State().ErrorOutputValues);
    EXPECT_FALSE(State().Tables);
    EXPECT_EQ(State().InputsText, inputs);
    EXPECT_EQ(State().HelpFile, u"help");
    EXPECT_EQ(State().LanguageId, 2052);
    Main::ParseDefinition();
    EXPECT_TRUE(State().InputValues) << "the next thread goes on";
}

/// A host's dictionary that uses the process-wide state when it is released.
std::shared_ptr<ValueDictionary> DictionaryWithLastWords(std::function<void()> lastWords) {
    return {new OwnValueDictionary(KeyComparison::Exact),
            [lastWords = std::move(lastWords)](ValueDictionary* dictionary) {
                delete dictionary;
                lastWords();
            }};
}

TEST_F(DefinitionTest, HostObjectsMayUseTheStateWhileTheModelIsReleased) {
    Parse(u"X/1/0/A,0,0,1,1", u"", u"");
    bool seen = false;
    State().InputValues = DictionaryWithLastWords([&seen] {
        seen = true;
        EXPECT_FALSE(State().InputVariables);
        EXPECT_FALSE(State().InputValues);
        Main::ParseDefinition();
    });
    Definition::ReleaseModel();
    EXPECT_TRUE(seen);
    EXPECT_EQ(KeysOf(*State().InputVariables), std::vector<Text>{u"X"});
}

TEST_F(DefinitionTest, HostObjectsMayUseTheStateWhileItIsReset) {
    Parse(u"X/1/0/A,0,0,1,1", u"", u"");
    int seen = 0;
    const auto lastWords = [&seen] {
        ++seen;
        EXPECT_FALSE(State().InputVariables);
        EXPECT_FALSE(State().InputValues);
        State().LanguageId += 1;
    };
    State().InputValues = DictionaryWithLastWords(lastWords);
    State().DefaultOutputValues = DictionaryWithLastWords(lastWords);
    State().ErrorOutputValues = DictionaryWithLastWords(lastWords);
    Definition::Reset();
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(State().LanguageId, 3);
}

TEST_F(DefinitionTest, RequiringWhatIsNotSetRaises) {
    EXPECT_EQ(Raised([] { Definition::Require(State().InputVariables); }),
              PlatformError(RuntimeError::ObjectNotSet));
    EXPECT_EQ(Raised([] { Definition::Require(State().InputValues); }),
              PlatformError(RuntimeError::ObjectNotSet));
    Parse(u"", u"", u"");
    EXPECT_EQ(&Definition::Require(State().InputVariables), &*State().InputVariables);
}

TEST_F(DefinitionTest, TheCurrentErrorTextIsInTheCurrentLanguage) {
    State().CurrentErrorId = 79;
    EXPECT_EQ(RunTime::CurrentErrorText(), u"Invalid linguistic input signal.");
    State().LanguageId = 2052;
    EXPECT_EQ(RunTime::CurrentErrorText(), u"无效的语言输入信号。");
}

TEST_F(DefinitionTest, AnErrorIsAStandardException) {
    const FisError error(RuntimeError::Overflow);
    EXPECT_STREQ(error.what(), "Quorvane error");
    EXPECT_EQ(error.Number, 0x800A0006U);
}

TEST_F(DefinitionTest, ErrorsOfThePlatformHaveItsNumbers) {
    // Invalid call 5, overflow 6, subscript 9, type mismatch 13, object 91, key exists 457, and the
    // scripting dictionary's own 32811.
    EXPECT_EQ(FisError(RuntimeError::InvalidCall).Number, 0x800A0000U + 5);
    EXPECT_EQ(FisError(RuntimeError::Overflow).Number, 0x800A0000U + 6);
    EXPECT_EQ(FisError(RuntimeError::SubscriptOutOfRange).Number, 0x800A0000U + 9);
    EXPECT_EQ(FisError(RuntimeError::TypeMismatch).Number, 0x800A0000U + 13);
    EXPECT_EQ(FisError(RuntimeError::ObjectNotSet).Number, 0x800A0000U + 91);
    EXPECT_EQ(FisError(RuntimeError::DuplicateKey).Number, 0x800A0000U + 457);
    EXPECT_EQ(FisError(RuntimeError::MissingKey).Number, 0x800A0000U + 32811);
}

TEST_F(DefinitionTest, TermsTakeTwelveColours) {
    const std::vector<std::uint32_t> colours(TermColors.begin(), TermColors.end());
    EXPECT_EQ(colours, (std::vector<std::uint32_t>{0xFF0000, 0x0000FF, 0x00FFFF, 0x008000, 0xFF00FF,
                                                   0x808000, 0x800080, 0x008080, 0x00FF00, 0x000080,
                                                   0xFFFF00, 0x800000}));
}

} // namespace
} // namespace Quorvane
