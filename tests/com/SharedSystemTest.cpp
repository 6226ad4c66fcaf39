// SPDX-License-Identifier: MIT
// Several controls in one process share one fuzzy system, and tables can be older than the model.
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

class SharedSystem : public ControlTest {};

TEST_F(SharedSystem, IsThatOfTheControlLoadedLast) {
    const auto first = Run(TwoInputs);
    PutItem(InVals(first), u"A", 2);
    EXPECT_EQ(first->Fire(), S_OK);
    EXPECT_EQ(Output(first, u"Sum"), 8);

    const auto second = Run(Adder);
    EXPECT_EQ(FireWith(first, 10), 138) << "the first control infers with the second's system";
    EXPECT_EQ(Output(second, u"Y"), 138) << "they share the values, too";
    EXPECT_EQ(FireWith(second, 11), 139);
    EXPECT_EQ(Output(first, u"Y"), 139);
}

TEST_F(SharedSystem, IsEmptiedByTheEndOfAnyControl) {
    const auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(FireWith(placed, 1), 129);
    Create();
    Com::ComPtr<IDictionary> values;
    EXPECT_EQ(placed->get_InVals(values.Put()), S_OK);
    EXPECT_FALSE(values);
    EXPECT_EQ(placed->get_OutVals(values.Put()), S_OK);
    EXPECT_FALSE(values);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 2);
    // The texts stay, and so does the way back.
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), Stored(Adder.Inputs));
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 2), 130);
}

TEST_F(SharedSystem, OutlivesACreationThatAskedForAnUnknownInterface) {
    const auto placed = Run(Adder);
    constexpr IID Unknown{
        0x5f9b2d10, 0x7c43, 0x4a6e, {0x91, 0x0d, 0x3b, 0x52, 0x6e, 0x88, 0x14, 0xc7}};
    void* object = &object;
    EXPECT_EQ(CreateInstance(nullptr, Unknown, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(FireWith(placed, 5), 133);
}

TEST_F(SharedSystem, TakesNewInputsAfterTheEndOfAControl) {
    const auto placed = Run(Adder);
    Create();
    const auto inputs = NewPlatformDictionary();
    PutItem(inputs, u"X", 1);
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK) << "no model, so the cycle fails";
    EXPECT_EQ(placed->putref_DefOutVals(inputs.Get()), static_cast<HRESULT>(0x80040052));
}

TEST_F(SharedSystem, IsStillThereForTheNextControlThatIsLoaded) {
    Run(Adder);
    const auto placed = Run(TwoInputs);
    EXPECT_EQ(KeysOf(*InVals(placed)), (std::vector<std::string>{"String A", "String B"}));
}

TEST_F(SharedSystem, FiresTheOldRulesOverANewModel) {
    const auto running = Run(Adder);
    // At design time nothing is prepared: other rules and other outputs do not count yet.
    const auto editor =
        Design({Adder.Inputs, u"Y/2000/0/Zero,100;Top,356", u"X>Low/Y<Top:1|X>High/Y<Top:1"});
    EXPECT_EQ(FireWith(running, 4), 132);
    EXPECT_EQ(FireWith(running, 1000), 1000) << "the default is that of the new model";
}

TEST_F(SharedSystem, TakesTheBoundsOfANewModel) {
    const auto running = Run(Adder);
    EXPECT_EQ(FireWith(running, 100), 228);
    const auto editor = Design(
        {u"X/50/-50/Low,-128,-128,-128,128;High,-128,128,128,128", Adder.Outputs, Adder.Rules});
    EXPECT_EQ(FireWith(running, 60), 500) << "outside the new universe";
    EXPECT_EQ(FireWith(running, 40), 168);
}

TEST_F(SharedSystem, TakesTheInputPointsOfANewModel) {
    const auto running = Run(Adder);
    EXPECT_EQ(FireWith(running, 100), 228);
    const auto editor = Design(
        {u"X/128/-128/Low,-128,128,128,128;High,-128,-128,-128,128", Adder.Outputs, Adder.Rules});
    EXPECT_EQ(FireWith(running, 60), 68) << "Low and High have changed places";
}

TEST_F(SharedSystem, FailsTheCycleForANameThatTheNewModelLacks) {
    const System lacking[] = {
        {u"Other/128/-128/Low,-128,-128,-128,128;High,-128,128,128,128", Adder.Outputs,
         u"Other>Low/Y<Zero:1"},
        {u"X/128/-128/Low,-128,-128,-128,128", Adder.Outputs, u"X>Low/Y<Zero:1"},
    };
    for (const System& system : lacking) {
        const auto running = Run(Adder);
        EXPECT_EQ(FireWith(running, 1), 129);
        const auto editor = Design(system);
        EXPECT_EQ(FireWith(running, 2), 500);
    }
}

TEST_F(SharedSystem, GivesOutputsOfTheOldModelNoDefaultInTheNew) {
    const auto running = Run(TwoOutputs);
    EXPECT_EQ(FireWith(running, 0), 128);
    const auto editor = Design({Adder.Inputs, u"Y/1000/0/Zero,0;Top,256", Adder.Rules});
    EXPECT_EQ(FireWith(running, 1000), 500);
    EXPECT_EQ(Describe(ItemOf(OutVals(running), u"Z")), "Empty");
}

TEST_F(SharedSystem, FiresTheOldRulesOverAModelWithoutAny) {
    const auto running = Run(Adder);
    const auto editor = Design({Adder.Inputs, Adder.Outputs, u""});
    EXPECT_EQ(FireWith(running, 3), 131);
    EXPECT_EQ(running->putref_DefOutVals(NewPlatformDictionary().Get()), S_OK);
    EXPECT_EQ(running->Fire(), S_OK);
    EXPECT_TRUE(KeysOf(*OutVals(running)).empty()) << "now the empty rule base is prepared";
}

TEST_F(SharedSystem, FiresTheOldRulesAfterALoadThatFailed) {
    const auto running = Run(Adder);
    EXPECT_EQ(FireWith(running, 3), 131);
    EXPECT_EQ(LoadSystem(running, {Adder.Inputs, Adder.Outputs, u"broken"}),
              static_cast<HRESULT>(0x80040052));
    EXPECT_EQ(FireWith(running, 4), 132);
    // The inputs are new before the outputs fail.
    EXPECT_TRUE(FAILED(LoadSystem(running, {TwoInputs.Inputs, u"broken", u""})));
    EXPECT_EQ(KeysOf(*InVals(running)), (std::vector<std::string>{"String A", "String B"}));
    EXPECT_EQ(running->Fire(), S_OK);
}

TEST_F(SharedSystem, SurvivesAnyOrderOfLoadingFiringAndEnding) {
    const System systems[] = {
        Adder, TwoOutputs, TwoInputs, {u"", u"", u""}, {Adder.Inputs, Adder.Outputs, u"broken"}};
    Placed controls[3];
    std::uint32_t random = 20260101;
    const auto next = [&random](std::uint32_t limit) {
        random = random * 1664525 + 1013904223;
        return (random >> 16) % limit;
    };
    for (int step = 0; step < 2000; ++step) {
        Placed& placed = controls[next(3)];
        if (!placed.Control) {
            placed = Place(next(2) == 0);
        }
        switch (next(8)) {
        case 0:
            LoadSystem(placed, systems[next(5)]);
            break;
        case 1:
            InitNew(placed.Control);
            break;
        case 2:
            placed = {};
            break;
        case 3:
            placed->putref_DefOutVals(NewPlatformDictionary().Get());
            break;
        case 4: {
            Com::ComPtr<IDictionary> values;
            if (SUCCEEDED(placed->get_InVals(values.Put())) && values) {
                PutItem(values, u"X", Com::Variant(static_cast<int>(next(200))));
            }
            break;
        }
        default:
            EXPECT_EQ(placed->Fire(), S_OK);
        }
    }
    for (Placed& placed : controls) {
        placed = {};
    }
    EXPECT_EQ(FireWith(Run(Adder), 1), 129);
}

} // namespace
} // namespace Quorvane
