// SPDX-License-Identifier: MIT
// Dictionaries that a host has made itself, friendly and hostile ones.
#include "tests/com/support/ControlTest.h"
#include "tests/com/support/HostDictionary.h"

namespace Quorvane {
namespace {

class ForeignDictionary : public ControlTest {
  protected:
    /// A running adder with a dictionary of the test for its inputs, X being 1.
    Placed RunWith(const Com::ComPtr<HostDictionary>& inputs) const {
        Placed placed = Run(Adder);
        PutItem(inputs->Inner(), u"X", 1);
        EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
        return placed;
    }
};

TEST_F(ForeignDictionary, OfThePlatformIsTheOneThatIsReadAndHandedOut) {
    const auto placed = Run(Adder);
    for (const int mode : {0, 1}) {
        const auto inputs = NewPlatformDictionary();
        EXPECT_EQ(inputs->put_CompareMode(mode), S_OK);
        PutItem(inputs, u"X", 7);
        EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
        EXPECT_TRUE(Com::IsSameObject(InVals(placed).Get(), inputs.Get()));
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Output(placed, u"Y"), 135);
        PutItem(inputs, u"X", TextValue(u"8"));
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Output(placed, u"Y"), 136) << "the host's object is live";
    }
}

TEST_F(ForeignDictionary, ThatLacksAnInputFailsTheCycleAndGetsNoKey) {
    const auto placed = Run(Adder);
    const auto inputs = NewPlatformDictionary();
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 500);
    EXPECT_TRUE(KeysOf(*inputs).empty());
    PutItem(inputs, u"x", 1);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 500) << "this dictionary tells the cases apart";
    PutItem(inputs, u"X", 1);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 129);
    EXPECT_EQ(KeysOf(*inputs), (std::vector<std::string>{"String x", "String X"}));
}

TEST_F(ForeignDictionary, IsReplacedByTheNextParse) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_FALSE(Com::IsSameObject(InVals(placed).Get(), inputs.Get()));
    EXPECT_EQ(Describe(ItemOf(InVals(placed), u"X")), "Double -128");
}

TEST_F(ForeignDictionary, IsOnlyReadAndOnlyByExistsAndItem) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto defaults = Com::MakeObject<HostDictionary>();
    const auto errors = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    PutItem(inputs->Inner(), u"X", TextValue(u"none"));
    EXPECT_EQ(placed->Fire(), S_OK);
    PutItem(inputs->Inner(), u"X", 1000);
    EXPECT_EQ(placed->Fire(), S_OK);
    for (const auto& dictionary : {inputs, defaults, errors}) {
        for (const auto& [name, count] : dictionary->Calls) {
            EXPECT_TRUE(name == "Exists" || name == "get_Item") << name;
        }
        EXPECT_GT(dictionary->Calls["Exists"], 0);
    }
    EXPECT_TRUE(KeysOf(*defaults->Inner()).empty());
    EXPECT_TRUE(KeysOf(*errors->Inner()).empty());
}

TEST_F(ForeignDictionary, OfTheControlIsKnownAgain) {
    const auto placed = Run(Adder);
    const auto old = InVals(placed);
    PutItem(old, u"X", 3);
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_FALSE(Com::IsSameObject(InVals(placed).Get(), old.Get()));
    EXPECT_EQ(placed->putref_InVals(old.Get()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(InVals(placed).Get(), old.Get()));
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 131);
}

TEST_F(ForeignDictionary, MayBeOneForAllFourProperties) {
    const auto placed = Run(Adder);
    const auto all = OutVals(placed);
    PutItem(all, u"X", 2);
    EXPECT_EQ(placed->putref_InVals(all.Get()), S_OK);
    EXPECT_EQ(placed->putref_ErrOutVals(all.Get()), S_OK);
    EXPECT_EQ(placed->putref_DefOutVals(all.Get()), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 130);
    PutItem(all, u"X", TextValue(u"none"));
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 500);
}

TEST_F(ForeignDictionary, ThatFailsFailsTheCycleOnly) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    for (HRESULT HostDictionary::*const result :
         {&HostDictionary::ExistsResult, &HostDictionary::GetResult}) {
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Output(placed, u"Y"), 129);
        (*inputs).*result = RPC_E_SERVERFAULT;
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Output(placed, u"Y"), 500);
        (*inputs).*result = S_OK;
    }
    EXPECT_EQ(sink->Count, 4);
}

TEST_F(ForeignDictionary, OfDefaultsThatFailsFailsThePreparation) {
    const auto placed = Run(Adder);
    const auto defaults = Com::MakeObject<HostDictionary>();
    defaults->ExistsResult = E_FAIL;
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), static_cast<HRESULT>(0x80040052));
    EXPECT_EQ(FireWith(placed, 1), 129);
    // No rule fires and the default cannot be read: a failed cycle without a default, either.
    EXPECT_EQ(FireWith(placed, 1000), 129) << "the output is left as it is";
}

TEST_F(ForeignDictionary, OfErrorValuesThatFailsLeavesTheOutputsAsTheyAre) {
    const auto placed = Run(Adder);
    const auto errors = Com::MakeObject<HostDictionary>();
    errors->GetResult = E_FAIL;
    PutItem(errors->Inner(), u"Y", 9);
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(FireWith(placed, TextValue(u"none")), 129);
}

/// What a hostile dictionary does while it is read.
struct Attack {
    const char* Name;
    std::function<void()> Do;
};

class HostileDictionary : public ForeignDictionary {
  protected:
    /// Runs each attack once from each member that the engine calls.
    void AttackCycle(const Placed& placed, const Com::ComPtr<HostDictionary>& inputs,
                     const std::vector<Attack>& attacks) const {
        for (std::function<void(const Text&)> HostDictionary::*const member :
             {&HostDictionary::OnExists, &HostDictionary::OnGet}) {
            for (const auto& [name, attack] : attacks) {
                const auto sink = Com::MakeObject<EventSink>();
                const Connection connection(placed.Control.Get(), sink.Get());
                ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
                ASSERT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
                PutItem(inputs->Inner(), u"X", 1);
                bool attacked = false;
                (*inputs).*member = [&](const Text&) {
                    (*inputs).*member = {};
                    attacked = true;
                    attack();
                };
                EXPECT_EQ(placed->Fire(), S_OK) << name;
                EXPECT_TRUE(attacked) << name;
                EXPECT_GE(sink->Count, 1) << name;
            }
        }
        ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
        EXPECT_EQ(FireWith(placed, 1), 129);
    }
};

TEST_F(HostileDictionary, MayChangeEverythingWhileItIsRead) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    AttackCycle(
        placed, inputs,
        {
            {"fires", [&] { EXPECT_EQ(placed->Fire(), S_OK); }},
            {"loads another system", [&] { EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK); }},
            {"loads an empty system",
             [&] {
                 EXPECT_EQ(LoadSystem(placed, {u"", u"", u""}), S_OK);
             }},
            {"loads another control", [&] { Run(TwoOutputs); }},
            {"makes a new control", [&] { New(false); }},
            {"ends another control", [&] { Create(); }},
            {"assigns other inputs",
             [&] { EXPECT_EQ(placed->putref_InVals(NewPlatformDictionary().Get()), S_OK); }},
            {"assigns other defaults",
             [&] { EXPECT_EQ(placed->putref_DefOutVals(NewPlatformDictionary().Get()), S_OK); }},
            {"assigns error values",
             [&] { EXPECT_EQ(placed->putref_ErrOutVals(NewPlatformDictionary().Get()), S_OK); }},
            {"empties itself", [&] { EXPECT_EQ(inputs->Inner()->RemoveAll(), S_OK); }},
            {"takes the site away",
             [&] { EXPECT_EQ(As<IOleObject>(placed)->SetClientSite(nullptr), S_OK); }},
            {"closes the control",
             [&] { EXPECT_EQ(As<IOleObject>(placed)->Close(OLECLOSE_NOSAVE), S_OK); }},
        });
}

TEST_F(HostileDictionary, OfDefaultsMayChangeEverythingWhileItIsRead) {
    const auto defaults = Com::MakeObject<HostDictionary>();
    const auto placed = Run(Adder);
    const Attack attacks[] = {
        {"assigns other defaults",
         [&] { EXPECT_EQ(placed->putref_DefOutVals(NewPlatformDictionary().Get()), S_OK); }},
        {"loads another system", [&] { EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK); }},
        {"makes a new control", [&] { New(false); }},
        {"ends another control", [&] { Create(); }},
        {"fires", [&] { EXPECT_EQ(placed->Fire(), S_OK); }},
    };
    for (const auto& [name, attack] : attacks) {
        ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
        bool attacked = false;
        defaults->OnExists = [&](const Text&) {
            defaults->OnExists = {};
            attacked = true;
            attack();
        };
        const HRESULT result = placed->putref_DefOutVals(defaults.Get());
        EXPECT_TRUE(result == S_OK || result == static_cast<HRESULT>(0x80040052)) << name;
        EXPECT_TRUE(attacked) << name;
        EXPECT_EQ(placed->Fire(), S_OK) << name;
    }
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
}

TEST_F(HostileDictionary, OfErrorValuesMayChangeEverythingWhileItIsRead) {
    const auto errors = Com::MakeObject<HostDictionary>();
    const auto placed = Run(TwoOutputs);
    const Attack attacks[] = {
        {"fires", [&] { EXPECT_EQ(placed->Fire(), S_OK); }},
        {"unsets the error values", [&] { EXPECT_EQ(placed->putref_ErrOutVals(nullptr), S_OK); }},
        {"empties the outputs", [&] { EXPECT_EQ(OutVals(placed)->RemoveAll(), S_OK); }},
        {"loads another system", [&] { EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK); }},
        {"ends another control", [&] { Create(); }},
    };
    for (const auto& [name, attack] : attacks) {
        ASSERT_EQ(LoadSystem(placed, TwoOutputs), S_OK);
        ASSERT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
        PutItem(InVals(placed), u"X", TextValue(u"none"));
        bool attacked = false;
        errors->OnExists = [&](const Text&) {
            errors->OnExists = {};
            attacked = true;
            attack();
        };
        EXPECT_EQ(placed->Fire(), S_OK) << name;
        EXPECT_TRUE(attacked) << name;
    }
}

TEST_F(HostileDictionary, MayReleaseTheControlWhileItIsRead) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    auto placed = RunWith(inputs);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    inputs->OnGet = [&](const Text&) { placed = {}; };
    _FISControl* const bare = placed.Control.Get();
    EXPECT_EQ(bare->Fire(), S_OK);
    EXPECT_FALSE(placed.Control);
    EXPECT_EQ(sink->Count, 1) << "the cycle ends as it would have";
    inputs->OnGet = {};
}

TEST_F(HostileDictionary, MayReleaseItselfWhileItIsRead) {
    auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    inputs->OnGet = [&](const Text&) {
        EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
        inputs.Reset();
    };
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_FALSE(inputs);
}

TEST_F(HostileDictionary, MayFireAgainAndAgain) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = RunWith(inputs);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    int depth = 0;
    inputs->OnGet = [&](const Text&) {
        if (++depth < 50) {
            EXPECT_EQ(placed->Fire(), S_OK);
        }
    };
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 50);
    EXPECT_EQ(Output(placed, u"Y"), 129);
    inputs->OnGet = {};
}

} // namespace
} // namespace Quorvane
