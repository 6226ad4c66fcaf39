// SPDX-License-Identifier: MIT
// What a batch does on its way: the inputs it sets, the cycles it runs, and what hosts may do then.
#include "tests/com/support/BatchTest.h"
#include "tests/com/support/HostDictionary.h"

namespace Quorvane {
namespace {

/// What a batch of one division over TwoInputs writes that nobody disturbs.
constexpr const char* Points = "0,0\r\n0,4\r\n2,0\r\n2,4\r\n";

class BatchRun : public BatchTest {
  protected:
    /// Runs a batch of one division over TwoInputs, in which the handler does something at the
    /// first point. Gives how often the event came.
    int BatchWith(const Placed& placed, std::function<void()> atFirstPoint) const {
        const auto sink = Com::MakeObject<EventSink>();
        sink->Handler = [&sink, &atFirstPoint] {
            if (sink->Count == 1) {
                atFirstPoint();
            }
        };
        const Connection connection(placed.Control.Get(), sink.Get());
        Batch(placed, 1);
        return sink->Count;
    }
};

TEST_F(BatchRun, RaisesTheEventAtEachPointWithItsValues) {
    const auto placed = Run(TwoInputs);
    std::vector<std::string> seen;
    const auto sink = Com::MakeObject<EventSink>([&] {
        seen.push_back(Describe(ItemOf(InVals(placed), u"A")) + ", " +
                       Describe(ItemOf(InVals(placed), u"B")) + ": " +
                       Describe(ItemOf(OutVals(placed), u"Sum")));
    });
    const Connection connection(placed.Control.Get(), sink.Get());
    Batch(placed, 1);
    EXPECT_EQ(seen, (std::vector<std::string>{
                        "Double 0, Double 0: Double 0", "Double 0, Double 4: Double 4",
                        "Double 2, Double 0: Double 8", "Double 2, Double 4: Double 12"}));
}

TEST_F(BatchRun, LeavesTheInputsAtTheirUpperBounds) {
    const auto placed = Run(TwoInputs);
    for (const LONG part : {1L, 3L, 0L}) {
        PutItem(InVals(placed), u"A", TextValue(u"none"));
        Batch(placed, part);
        EXPECT_EQ(KeysOf(*InVals(placed)), (std::vector<std::string>{"String A", "String B"}));
        EXPECT_EQ(Describe(ItemOf(InVals(placed), u"A")), "Double 2");
        EXPECT_EQ(Describe(ItemOf(InVals(placed), u"B")), "Double 4");
        EXPECT_EQ(Output(placed, u"Sum"), 12);
    }
    // The bound itself, which ten times the step would miss.
    ASSERT_EQ(
        LoadSystem(placed, {u"X/3.3/-10/Any,-10,-10,3.3,3.3", Adder.Outputs, u"X>Any/Y<Top:1"}),
        S_OK);
    Batch(placed, 10);
    EXPECT_EQ(ItemOf(InVals(placed), u"X").Get().dblVal, 3.3);
    EXPECT_EQ(Output(placed, u"Y"), 256) << "inside the universe";
}

TEST_F(BatchRun, WritesIntoTheDictionaryOfTheHost) {
    const auto placed = Run(TwoInputs);
    const auto inputs = NewPlatformDictionary();
    PutItem(inputs, u"Note", TextValue(u"kept"));
    PutItem(inputs, u"B", TextValue(u"none"));
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    Batch(placed, 1);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
    EXPECT_EQ(KeysOf(*inputs), (std::vector<std::string>{"String Note", "String B", "String A"}));
    EXPECT_EQ(Describe(ItemOf(inputs, u"A")), "Double 2");
    EXPECT_EQ(Describe(ItemOf(inputs, u"B")), "Double 4");
    EXPECT_EQ(Describe(ItemOf(inputs, u"Note")), "String kept");
}

TEST_F(BatchRun, WritesAValueOnlyWhereItChanges) {
    const auto placed = Run(TwoInputs);
    const auto inputs = Com::MakeObject<HostDictionary>();
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    std::string order;
    inputs->OnPut = [&order](const Text& key) { order += Narrow(key); };
    Batch(placed, 1);
    EXPECT_EQ(order, "ABBABB");
    EXPECT_EQ(inputs->Calls["put_Item"], 6);
    EXPECT_EQ(inputs->Calls["putref_Item"], 0);
}

TEST_F(BatchRun, GivesAPointThatFailsTheErrorOutputs) {
    // At X = 0 and beyond, the product is beyond the range of a number.
    const System overflowing = {Adder.Inputs, u"Y/1000/0/Zero,0;Top,1E308", u"X>High/Y<Top:1E200"};
    const auto placed = Run(overflowing);
    Batch(placed, 2);
    ExpectFiles("-128\r\n0\r\n128\r\n", "500 \r\n500 \r\n500 \r\n");

    const auto errors = NewPlatformDictionary();
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    Batch(placed, 2);
    ExpectFiles("-128\r\n0\r\n128\r\n", "500 \r\n \r\n \r\n");

    const struct {
        Com::Variant Value;
        const char* Expected;
    } cases[] = {
        {Com::Variant(-1.5), "-1.5"},     {Com::Variant(7), "7"},
        {Com::Variant(true), "True"},     {TextValue(u"no, \"it\" failed"), "no, \"it\" failed"},
        {Typed(VT_R4, 2.5), "2.5"},       {Typed(VT_CY, -2.25), "-2.25"},
        {Typed(VT_DECIMAL, 4.5), "4.5"},  {Typed(VT_I8, 1e15), "1000000000000000"},
        {Com::Variant(0.1 + 0.2), "0.3"}, {Com::Variant(1e20), "1E+20"},
        {TextValue(u"\u00E4"), "\xE4"},   {Com::Variant(), ""},
        {Com::Variant(-0.0), "0"},
    };
    for (const auto& [value, expected] : cases) {
        PutItem(errors, u"Y", value);
        Batch(placed, 2);
        const std::string line = std::string(expected) + " \r\n";
        ExpectFiles("-128\r\n0\r\n128\r\n", "500 \r\n" + line + line);
    }
}

TEST_F(BatchRun, GoesOnAfterAPointThatFails) {
    const auto placed = Run(Adder);
    const auto inputs = Com::MakeObject<HostDictionary>();
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    int count = 0;
    inputs->OnGet = [&](const Text&) { inputs->GetResult = ++count == 2 ? E_FAIL : S_OK; };
    Batch(placed, 4);
    ExpectFiles("-128\r\n-64\r\n0\r\n64\r\n128\r\n", "0 \r\n500 \r\n128 \r\n192 \r\n256 \r\n");
}

TEST_F(BatchRun, UsesTheDefaultsOfTheHostWhereNoRuleFires) {
    const auto placed = Run(Silent(Adder.Inputs));
    const auto defaults = NewPlatformDictionary();
    PutItem(defaults, u"Y", TextValue(u"idle"));
    EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
    Batch(placed, 1);
    ExpectFiles("-128\r\n128\r\n", "idle \r\nidle \r\n");
}

TEST_F(BatchRun, IsAllowedAtDesignTime) {
    const auto running = Run(Adder);
    const auto placed = Design(Adder);
    Batch(placed, 1);
    ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
}

TEST_F(BatchRun, RaisesNoEventWhileEventsAreFrozen) {
    const auto placed = Run(TwoInputs);
    EXPECT_EQ(As<IOleControl>(placed)->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(BatchWith(placed, [] {}), 0);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, MayShowItsValues) {
    const auto placed = Run(TwoInputs);
    EXPECT_EQ(placed->put_DataShow(VARIANT_TRUE), S_OK);
    Batch(placed, 1);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerFire) {
    const auto placed = Run(TwoInputs);
    const int events = BatchWith(placed, [&] { EXPECT_EQ(placed->Fire(), S_OK); });
    EXPECT_EQ(events, 5);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, TakesTheOutputsThatItsHandlerLeaves) {
    const auto placed = Run(TwoInputs);
    BatchWith(placed, [&] { PutItem(OutVals(placed), u"Sum", TextValue(u"mine")); });
    ExpectFiles(Points, "mine \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerChangeAnInput) {
    const auto placed = Run(TwoInputs);
    // A is not written again before the third point.
    BatchWith(placed, [&] { PutItem(InVals(placed), u"A", 1); });
    ExpectFiles(Points, "0 \r\n8 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerRunAnother) {
    const auto placed = Run(TwoInputs);
    const TestFolder other;
    const int events = BatchWith(placed, [&] { CallBatchData(placed, other.Path(), 2); });
    EXPECT_EQ(events, 4 + 9);
    EXPECT_EQ(other.Read("InData.txt"),
              "0,0\r\n0,2\r\n0,4\r\n1,0\r\n1,2\r\n1,4\r\n2,0\r\n2,2\r\n2,4\r\n");
    EXPECT_EQ(other.Read("OutData.txt"),
              "0 \r\n2 \r\n4 \r\n4 \r\n6 \r\n8 \r\n8 \r\n10 \r\n12 \r\n");
    // The inner one has left both inputs at their upper bounds; A is not written again before the
    // third point.
    ExpectFiles(Points, "12 \r\n12 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, DoesNotLetItsHandlerRunAnotherIntoTheSameFiles) {
    const auto placed = Run(TwoInputs);
    const auto sink = Com::MakeObject<EventSink>();
    sink->Handler = [&] {
        if (sink->Count == 1) {
            CallBatchData(placed, Folder().Path(), 2);
        }
    };
    const Connection connection(placed.Control.Get(), sink.Get());
    ExpectMessage(RunBatch(placed, Folder().Path(), 1));
    EXPECT_EQ(sink->Count, 4);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerReleaseTheControl) {
    auto placed = Run(TwoInputs);
    const auto sink = Com::MakeObject<EventSink>([&] { placed = {}; });
    const Connection connection(placed.Control.Get(), sink.Get());
    Batch(placed, 1);
    EXPECT_FALSE(placed.Control);
    EXPECT_EQ(sink->Count, 4) << "the batch ends as it would have";
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerCloseAndUnadvise) {
    auto placed = Run(TwoInputs);
    const auto sink = Com::MakeObject<EventSink>();
    Connection connection(placed.Control.Get(), sink.Get());
    sink->Handler = [&] {
        connection.End();
        EXPECT_EQ(As<IOleObject>(placed)->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(As<IOleObject>(placed)->SetClientSite(nullptr), S_OK);
    };
    Batch(placed, 1);
    EXPECT_EQ(sink->Count, 1);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, LetsItsHandlerLoadAnotherSystem) {
    const auto placed = Run(TwoInputs);
    const int events = BatchWith(placed, [&] { EXPECT_EQ(LoadSystem(placed, TwoOutputs), S_OK); });
    EXPECT_EQ(events, 4);
    // The walk is that of the system it began with, whose output nobody computes any more.
    ExpectFiles(Points, " \r\n \r\n \r\n \r\n");
    EXPECT_EQ(KeysOf(*InVals(placed)),
              (std::vector<std::string>{"String X", "String B", "String A"}));
    EXPECT_EQ(KeysOf(*OutVals(placed)), (std::vector<std::string>{"String Y", "String Z"}));
}

TEST_F(BatchRun, LetsItsHandlerLoadAnotherControlWithTheSameSystem) {
    const auto placed = Run(TwoInputs);
    Placed second;
    BatchWith(placed, [&] { second = Run(TwoInputs); });
    // A is at the lower bound of the newly parsed system, too; the outputs are its defaults first.
    ExpectFiles(Points, "6 \r\n4 \r\n8 \r\n12 \r\n");
}

TEST_F(BatchRun, EndsWhereItsHandlerEndsAnotherControl) {
    const auto placed = Run(TwoInputs);
    const auto sink = Com::MakeObject<EventSink>([&] { Create(); });
    const Connection connection(placed.Control.Get(), sink.Get());
    FailBatch(placed, Folder().Path(), 1);
    EXPECT_EQ(sink->Count, 1);
    ExpectFiles("0,0\r\n", "");
}

TEST_F(BatchRun, LetsItsHandlerAssignDictionaries) {
    const auto placed = Run(TwoInputs);
    const auto inputs = NewPlatformDictionary();
    const auto values = NewPlatformDictionary();
    PutItem(values, u"Sum", -1);
    BatchWith(placed, [&] {
        EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
        EXPECT_EQ(placed->putref_ErrOutVals(values.Get()), S_OK);
        EXPECT_EQ(placed->putref_DefOutVals(values.Get()), S_OK);
    });
    // A is missing until the third point.
    ExpectFiles(Points, "-1 \r\n-1 \r\n8 \r\n12 \r\n");
    EXPECT_EQ(KeysOf(*inputs), (std::vector<std::string>{"String B", "String A"}));
}

TEST_F(BatchRun, SurvivesADictionaryThatGoesWhileItIsWritten) {
    auto inputs = Com::MakeObject<HostDictionary>();
    const auto placed = Run(TwoInputs);
    EXPECT_EQ(placed->putref_InVals(inputs.Get()), S_OK);
    inputs->OnPut = [&](const Text&) {
        EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK);
        inputs.Reset();
    };
    Batch(placed, 1);
    EXPECT_FALSE(inputs);
    ExpectFiles(Points, "0 \r\n4 \r\n8 \r\n12 \r\n");
}

} // namespace
} // namespace Quorvane
