// SPDX-License-Identifier: MIT
// The three texts of the definition as properties: read always, written at design time only.
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E); // 382

struct TextProperty {
    const char* Name;
    TextGetter Get;
    TextSetter Put;
};

constexpr TextProperty Texts[] = {
    {"Inputs", &_FISControl::get_Inputs, &_FISControl::put_Inputs},
    {"Outputs", &_FISControl::get_Outputs, &_FISControl::put_Outputs},
    {"Rules", &_FISControl::get_Rules, &_FISControl::put_Rules},
};

class DefinitionProperties : public ControlTest {};

TEST_F(DefinitionProperties, AreTheStoredTextsOfTheBag) {
    const auto placed = Run(Adder);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), Stored(Adder.Inputs));
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Outputs), Stored(Adder.Outputs));
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Rules), Stored(Adder.Rules));
}

TEST_F(DefinitionProperties, OfANewControlAreTheBuiltInOnes) {
    const auto placed = New(false);
    for (const auto& [name, get, put] : Texts) {
        const Text text = GetText(*placed, get);
        EXPECT_FALSE(text.empty()) << name;
        EXPECT_EQ(text.size() % 2, 0u) << name;
        EXPECT_EQ(text.find_first_not_of(u"0123456789ABCDEF"), Text::npos) << name;
    }
}

TEST_F(DefinitionProperties, CannotBeSetAtRunTime) {
    const auto placed = Run(Adder);
    for (const auto& [name, get, put] : Texts) {
        const Text before = GetText(*placed, get);
        EXPECT_EQ(SetText(*placed, put, u"14"), NotAtRunTime) << name;
        EXPECT_EQ(GetText(*placed, get), before) << name;
    }
    EXPECT_EQ(FireWith(placed, 1), 129) << "the model is the same";
}

TEST_F(DefinitionProperties, CannotBeSetWithoutASite) {
    const auto control = Create();
    ASSERT_EQ(InitNew(control), S_OK);
    for (const auto& [name, get, put] : Texts) {
        EXPECT_EQ(SetText(*control, put, u"14"), NotAtRunTime) << name;
    }
}

TEST_F(DefinitionProperties, KeepAnyTextGivenAtDesignTime) {
    const auto placed = New(false);
    // Neither decoded nor parsed: the editor that sets them has changed the model already.
    const Text withZero(u"A\0B", 3);
    for (const auto& [name, get, put] : Texts) {
        for (const Text& text : {Text(), Text(u"no stored text"), withZero, Stored(u"A/1")}) {
            EXPECT_EQ(SetText(*placed, put, text), S_OK) << name;
            EXPECT_EQ(GetText(*placed, get), text) << name;
        }
    }
}

TEST_F(DefinitionProperties, LeaveTheModelAsItIs) {
    const auto running = Run(Adder);
    const auto designed = Place(false);
    for (const auto& [name, get, put] : Texts) {
        ASSERT_EQ(SetText(*designed, put, u"14"), S_OK) << name;
        EXPECT_EQ(GetText(*running, get), u"14") << "all controls share " << name;
    }
    EXPECT_EQ(FireWith(running, -100), 28);
}

TEST_F(DefinitionProperties, FollowTheModeOfTheMoment) {
    const auto placed = New(false);
    EXPECT_EQ(SetText(*placed, &_FISControl::put_Rules, u"14"), S_OK);
    placed.Site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(true);
    EXPECT_EQ(SetText(*placed, &_FISControl::put_Rules, u""), NotAtRunTime);
    placed.Site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(false);
    EXPECT_EQ(SetText(*placed, &_FISControl::put_Rules, u""), S_OK);
}

TEST_F(DefinitionProperties, OfTheLastControlToLoadAreThoseOfAll) {
    const auto first = Run(TwoInputs);
    const auto second = Run(Adder);
    EXPECT_EQ(GetText(*first, &_FISControl::get_Inputs), Stored(Adder.Inputs));
    EXPECT_EQ(FireWith(first, 5), 133);
    EXPECT_EQ(Output(second, u"Y"), 133);
    EXPECT_EQ(KeysOf(*InVals(first)), std::vector<std::string>{"String X"});
}

} // namespace
} // namespace Quorvane
