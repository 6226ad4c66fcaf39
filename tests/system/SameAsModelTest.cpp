// SPDX-License-Identifier: MIT
// The system as a value beside the model of the process, on random texts, sound and damaged.
#include <algorithm>

#include "engine/PrepareRuleBase.h"
#include "system/DefinitionTexts.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane::System {
namespace {

using Reference::Random;

/// Puts a character of the grammar in the place of another, or takes one away.
void Damage(Random& random, Text& text) {
    if (text.empty()) {
        return;
    }
    const auto place = random.Below(static_cast<std::uint32_t>(text.size()));
    constexpr TextView Characters = u"|/;,:><.E-019AaX[N]";
    if (random.Percent(50)) {
        text.erase(place, 1);
    } else {
        text[place] = Characters[random.Below(static_cast<std::uint32_t>(Characters.size()))];
    }
}

template <class Term>
void ExpectSameVariables(const std::vector<Variable<Term>>& actual,
                         const VariableDictionary& expected) {
    ASSERT_EQ(actual.size(), expected.Count());
    auto variable = actual.begin();
    for (const auto& [name, model] : expected) {
        EXPECT_EQ(variable->Name, name);
        EXPECT_TRUE(SameBits(model.LBound, variable->Lower));
        EXPECT_TRUE(SameBits(model.UBound, variable->Upper));
        ASSERT_EQ(variable->Terms.size(), model.MF.Count());
        auto term = variable->Terms.begin();
        for (const auto& [termName, modelTerm] : model.MF) {
            EXPECT_EQ(term->Name, termName);
            if constexpr (std::is_same_v<Term, InputTerm>) {
                EXPECT_TRUE(std::ranges::equal(term->Points, modelTerm.Points, SameBits));
            } else {
                EXPECT_TRUE(SameBits(modelTerm.Points.front(), term->Position));
            }
            ++term;
        }
        ++variable;
    }
}

/// Whether the control would take the texts: what it parses and prepares.
bool IsTaken(const Reference::SystemTexts& texts) {
    Definition::Reset();
    return !Raised([&] {
        Parse(texts.Inputs, texts.Outputs, texts.Rules);
        RunTime::PrepareRuleBase();
    });
}

/// Whether a rule names something that the control does not look up before a cycle.
bool IsUnknownName(const DefinitionError& error) {
    return error.Part == DefinitionPart::Rules &&
           (error.Message.find(u"put, not") != Text::npos ||
            error.Message.find(u"has no term") != Text::npos);
}

class SameAsModelTest : public CoreTest {
  protected:
    void Compare(const Reference::SystemTexts& texts) {
        const bool isTaken = IsTaken(texts);
        try {
            const FuzzySystem system = FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
            EXPECT_TRUE(isTaken);
            ++Taken;
            ExpectSameVariables(system.Inputs, *Definition::State().InputVariables);
            ExpectSameVariables(system.Outputs, *Definition::State().OutputVariables);
            EXPECT_EQ(system.Rules.size(), Definition::State().RuleBase->Count());
            const DefinitionTexts written = PlainTexts(system);
            EXPECT_EQ(PlainTexts(FromPlainTexts(written)), written);
            EXPECT_TRUE(FromPlainTexts(written) == system);
        } catch (const DefinitionError& error) {
            EXPECT_TRUE(!isTaken || IsUnknownName(error)) << Narrow(error.Message);
            ++Refused;
        }
    }

    int Taken = 0;
    int Refused = 0;
};

TEST_F(SameAsModelTest, OnRandomSystems) {
    Random random(71);
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Compare(Reference::MakeSystem(random));
    }
    EXPECT_GT(Taken, 2500);
}

TEST_F(SameAsModelTest, OnDamagedTexts) {
    Random random(72);
    const Reference::SystemLimits small{.Inputs = 2, .Terms = 2, .Outputs = 2, .Rules = 3};
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Reference::SystemTexts texts = Reference::MakeSystem(random, small);
        for (Text* const text : {&texts.Inputs, &texts.Outputs, &texts.Rules}) {
            if (random.Percent(40)) {
                Damage(random, *text);
            }
        }
        Compare(texts);
    }
    EXPECT_GT(Taken, 5000);
    EXPECT_GT(Refused, 5000);
}

} // namespace
} // namespace Quorvane::System
