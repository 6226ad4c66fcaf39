// SPDX-License-Identifier: MIT
// The outputs after good and after failed cycles, their defaults and their error values.
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

constexpr auto InvalidRule = static_cast<HRESULT>(0x80040052);

class OutputValues : public ControlTest {
  protected:
    /// Fires with an input that is no number.
    static void FailCycle(const Placed& placed) {
        PutItem(InVals(placed), u"X", TextValue(u"none"));
        EXPECT_EQ(placed->Fire(), S_OK);
    }
    static std::string OutputOf(const Placed& placed, TextView name) {
        return Describe(ItemOf(OutVals(placed), name));
    }
    static Com::ComPtr<IDictionary> Values(std::initializer_list<std::pair<TextView, double>> all) {
        auto values = NewPlatformDictionary();
        for (const auto& [name, value] : all) {
            PutItem(values, name, value);
        }
        return values;
    }
};

TEST_F(OutputValues, AreTheDefaultsBeforeTheFirstCycle) {
    const auto placed = Run(TwoOutputs);
    EXPECT_EQ(KeysOf(*OutVals(placed)), (std::vector<std::string>{"String Y", "String Z"}));
    EXPECT_EQ(Output(placed, u"Y"), 500);
    EXPECT_EQ(Output(placed, u"Z"), 600);
}

TEST_F(OutputValues, AreWeightedAverages) {
    const auto placed = Run(TwoOutputs);
    EXPECT_EQ(FireWith(placed, -64), 64);
    EXPECT_EQ(Output(placed, u"Z"), 192);
    // Rule 1 at half its weight: (1/2 x 1/2 x 256) / (1/2 + 1/2 x 1/2).
    ASSERT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero:1|X>High/Y<Top:0.5"}),
              S_OK);
    EXPECT_EQ(FireWith(placed, 0), 64 / 0.75);
    // All weights zero: the default.
    ASSERT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero:0|X>High/Y<Top:0"}),
              S_OK);
    EXPECT_EQ(FireWith(placed, 0), 500);
}

TEST_F(OutputValues, OfAnEmptyRuleBaseAreNoneAndTheEventIsRaised) {
    const auto placed = Run({Adder.Inputs, Adder.Outputs, u""});
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_TRUE(KeysOf(*OutVals(placed)).empty());
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(OutputValues, OfAControlCreatedAtRunTimeAreNoneUntilSomethingPrepares) {
    const auto placed = New(true);
    Com::ComPtr<IDictionary> outputs;
    EXPECT_EQ(placed->get_OutVals(outputs.Put()), S_OK);
    EXPECT_FALSE(outputs);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(placed->get_OutVals(outputs.Put()), S_OK);
    EXPECT_FALSE(outputs);
    EXPECT_EQ(placed->putref_DefOutVals(NewPlatformDictionary().Get()), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_FALSE(KeysOf(*OutVals(placed)).empty());
}

TEST_F(OutputValues, AfterAFailureAreTheDefaults) {
    const auto placed = Run(TwoOutputs);
    EXPECT_EQ(FireWith(placed, 0), 128);
    FailCycle(placed);
    EXPECT_EQ(Output(placed, u"Y"), 500);
    EXPECT_EQ(Output(placed, u"Z"), 600);
    EXPECT_EQ(FireWith(placed, 0), 128);
}

TEST_F(OutputValues, AfterAFailureAreTheErrorValuesWhereThereAreAny) {
    const auto placed = Run(TwoOutputs);
    const auto errors = Values({{u"Y", -1}, {u"Other", 3}});
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 500) << "until a cycle fails";
    FailCycle(placed);
    EXPECT_EQ(OutputOf(placed, u"Y"), "Double -1");
    EXPECT_EQ(OutputOf(placed, u"Z"), "Empty") << "the error values lack it";
    EXPECT_EQ(KeysOf(*OutVals(placed)), (std::vector<std::string>{"String Y", "String Z"}));
    EXPECT_EQ(KeysOf(*errors), (std::vector<std::string>{"String Y", "String Other"}))
        << "reading has added nothing";

    EXPECT_EQ(placed->putref_ErrOutVals(nullptr), S_OK) << "unset";
    FailCycle(placed);
    EXPECT_EQ(OutputOf(placed, u"Y"), "Double 500");
    EXPECT_EQ(OutputOf(placed, u"Z"), "Double 600");
}

TEST_F(OutputValues, AfterAFailureKeepTheTypeOfTheErrorValue) {
    const auto placed = Run(Adder);
    const auto errors = NewPlatformDictionary();
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    for (const Com::Variant& value :
         {TextValue(u"no value"), Com::Variant(7), Com::Variant(true), Typed(VT_CY, 2.5),
          Typed(VT_DATE, 3), Typed(VT_DECIMAL, 4.5), Bare(VT_NULL), Com::Variant(),
          Com::Variant(static_cast<IDispatch*>(errors.Get()))}) {
        PutItem(errors, u"Y", value);
        FailCycle(placed);
        EXPECT_EQ(OutputOf(placed, u"Y"), Describe(value));
    }
    // The last one is in a ring with its dictionary.
    EXPECT_EQ(errors->RemoveAll(), S_OK);
    FailCycle(placed);
}

TEST_F(OutputValues, TakeTheHostsDefaultsAtOnce) {
    const auto placed = Run(TwoOutputs);
    EXPECT_EQ(FireWith(placed, 0), 128);
    const auto before = OutVals(placed);
    const auto defaults = Values({{u"Y", 11}, {u"Z", 12}, {u"Other", 13}});
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), 11);
    EXPECT_EQ(Output(placed, u"Z"), 12);
    EXPECT_EQ(KeysOf(*OutVals(placed)), (std::vector<std::string>{"String Y", "String Z"}));
    // A host that has kept the former outputs keeps them as they were.
    EXPECT_FALSE(Com::IsSameObject(before.Get(), OutVals(placed).Get()));
    EXPECT_EQ(Describe(ItemOf(before, u"Y")), "Double 128");
    EXPECT_EQ(FireWith(placed, 1000), 11) << "no rule fires";
}

TEST_F(OutputValues, KeepTheTypeOfADefault) {
    const auto placed = Run(Adder);
    const auto defaults = NewPlatformDictionary();
    for (const Com::Variant& value : {TextValue(u"idle"), Com::Variant(7), Bare(VT_NULL),
                                      Com::Variant(false), Typed(VT_CY, 2.5)}) {
        PutItem(defaults, u"Y", value);
        EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
        EXPECT_EQ(OutputOf(placed, u"Y"), Describe(value));
        EXPECT_EQ(FireWith(placed, 0), 128);
        PutItem(InVals(placed), u"X", Com::Variant(1000));
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(OutputOf(placed, u"Y"), Describe(value)) << "no rule fires";
        FailCycle(placed);
        EXPECT_EQ(OutputOf(placed, u"Y"), Describe(value)) << "a failure";
    }
}

TEST_F(OutputValues, FollowADefaultThatTheHostChangesLater) {
    const auto placed = Run(Adder);
    const auto defaults = Values({{u"Y", 1}});
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    PutItem(defaults, u"Y", 2);
    EXPECT_EQ(Output(placed, u"Y"), 1);
    EXPECT_EQ(FireWith(placed, 1000), 2);
}

TEST_F(OutputValues, AreEmptyWhereTheDefaultsLackThem) {
    const auto placed = Run(TwoOutputs);
    const auto defaults = Values({{u"y", 1}, {u"Z", 2}});
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    EXPECT_EQ(OutputOf(placed, u"Y"), "Empty") << "this dictionary tells the cases apart";
    EXPECT_EQ(KeysOf(*defaults), (std::vector<std::string>{"String y", "String Z"}))
        << "reading has added nothing";
}

TEST_F(OutputValues, KeepTheDefaultsOfAHostThoughTheRulesCannotBePrepared) {
    const auto running = Run(Adder);
    const auto editor = Design({Adder.Inputs, Adder.Outputs, u"broken"});
    const auto before = OutVals(running);
    EXPECT_EQ(running->putref_DefOutVals(Values({{u"Y", 1}}).Get()), InvalidRule);
    EXPECT_TRUE(Com::IsSameObject(before.Get(), OutVals(running).Get()));
    EXPECT_EQ(FireWith(running, 0), 128) << "by the tables of the last preparation";
    EXPECT_EQ(FireWith(running, 1000), 1) << "with the new defaults";
}

TEST_F(OutputValues, AreLiveBetweenPreparations) {
    const auto placed = Run(Adder);
    const auto outputs = OutVals(placed);
    EXPECT_EQ(FireWith(placed, 5), 133);
    EXPECT_EQ(Describe(ItemOf(outputs, u"Y")), "Double 133");
    EXPECT_TRUE(Com::IsSameObject(outputs.Get(), OutVals(placed).Get()));
    PutItem(outputs, u"Y", TextValue(u"mine"));
    EXPECT_EQ(OutputOf(placed, u"Y"), "String mine");
    EXPECT_EQ(FireWith(placed, 6), 134);
}

TEST_F(OutputValues, ThatAHostHasRemovedComeBackWithACycle) {
    const auto placed = Run(TwoOutputs);
    EXPECT_EQ(OutVals(placed)->RemoveAll(), S_OK);
    EXPECT_EQ(FireWith(placed, 5), 133);
    EXPECT_EQ(KeysOf(*OutVals(placed)), (std::vector<std::string>{"String Y", "String Z"}));
    EXPECT_EQ(OutVals(placed)->RemoveAll(), S_OK);
    FailCycle(placed);
    EXPECT_TRUE(KeysOf(*OutVals(placed)).empty()) << "only what is there gets an error value";
}

TEST_F(OutputValues, ThatTheLastRuleOmitsKeepTheirValue) {
    const auto placed =
        Run({Adder.Inputs, TwoOutputs.Outputs, u"X>Low/Y<Zero;Z<Top:1|X>High/Y<Top:1"});
    EXPECT_EQ(FireWith(placed, 0), 128);
    EXPECT_EQ(Output(placed, u"Z"), 600) << "still the default";
}

TEST_F(OutputValues, ThatTheFirstRuleOmitsFailTheCycle) {
    const auto placed =
        Run({Adder.Inputs, TwoOutputs.Outputs, u"X>Low/Y<Zero:1|X>High/Y<Top;Z<Top:1"});
    EXPECT_EQ(KeysOf(*OutVals(placed)), std::vector<std::string>{"String Y"});
    EXPECT_EQ(FireWith(placed, 0), 500);
    EXPECT_EQ(KeysOf(*OutVals(placed)), std::vector<std::string>{"String Y"});
}

TEST_F(OutputValues, BeyondTheRangeOfANumberFailTheCycle) {
    const auto placed = Run({Adder.Inputs, u"Y/1000/0/Zero,0;Top,1E308", u"X>High/Y<Top:1E200"});
    EXPECT_EQ(FireWith(placed, 128), 500);
}

TEST_F(OutputValues, NameTheVariablesOfRulesInTheirOwnCase) {
    const auto placed = Run({u"Temp/128/-128/Low,-128,-128,-128,128;High,-128,128,128,128",
                             Adder.Outputs, u"Temp>Low/y<Zero:1|temp>High/y<Top:1"});
    EXPECT_EQ(KeysOf(*OutVals(placed)), std::vector<std::string>{"String y"});
    PutItem(InVals(placed), u"TEMP", Com::Variant(0.0));
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"y"), 128) << "two spellings, one input";
}

} // namespace
} // namespace Quorvane
