// SPDX-License-Identifier: MIT
// Replays the recorded cycles through the control: a host gets the bits that the engine computes.
#include <bit>

#include "tests/com/support/ControlTest.h"
#include "tests/support/CycleFile.h"

namespace Quorvane {
namespace {

using TestSupport::RecordedCycle;
using TestSupport::RecordedSystem;

/// The name of each variable of a definition text.
std::vector<Text> NamesIn(TextView text) {
    std::vector<Text> names;
    while (!text.empty()) {
        const TextView variable = text.substr(0, text.find(u'|'));
        names.emplace_back(variable.substr(0, variable.find(u'/')));
        text.remove_prefix(std::min(variable.size() + 1, text.size()));
    }
    return names;
}

/// The bits of a Double; Empty and a missing item are the word for nothing.
std::string Word(const Com::Variant& value) {
    if (value.Type() != VT_R8) {
        return Describe(value);
    }
    char word[17];
    std::snprintf(word, sizeof word, "%016llX",
                  std::bit_cast<unsigned long long>(value.Get().dblVal));
    return word;
}

Com::Variant Recorded(const std::optional<double>& item) {
    return item ? Com::Variant(*item) : Com::Variant();
}

class RecordedCycles : public ControlTest {
  protected:
    /// Runs all cycles of a system, with inputs of the control's own or of the host.
    void Replay(const RecordedSystem& system, bool isHostsDictionary) {
        const Text inputs = Widen(system.Inputs);
        const Text outputs = Widen(system.Outputs);
        const Text rules = Widen(system.Rules);
        const auto placed = Run({inputs, outputs, rules});
        const auto sink = Com::MakeObject<EventSink>();
        const Connection connection(placed.Control.Get(), sink.Get());
        if (isHostsDictionary) {
            const auto values = NewPlatformDictionary();
            EXPECT_EQ(values->put_CompareMode(1), S_OK) << "as the control's own one does";
            EXPECT_EQ(placed->putref_InVals(values.Get()), S_OK);
        }
        const auto inputNames = NamesIn(inputs);
        const auto outputNames = NamesIn(outputs);
        for (const RecordedCycle& cycle : system.Cycles) {
            SCOPED_TRACE(testing::Message() << "cycle " << sink->Count);
            ASSERT_EQ(cycle.Inputs.size(), inputNames.size());
            ASSERT_EQ(cycle.Outputs.size(), outputNames.size());
            for (std::size_t i = 0; i < inputNames.size(); ++i) {
                PutItem(InVals(placed), inputNames[i], Recorded(cycle.Inputs[i]));
            }
            EXPECT_EQ(placed->Fire(), S_OK);
            const auto values = OutVals(placed);
            for (std::size_t i = 0; i < outputNames.size(); ++i) {
                const bool exists = Exists(*values, outputNames[i]);
                const Com::Variant item = exists ? ItemOf(values, outputNames[i]) : Com::Variant();
                EXPECT_EQ(Word(item), Word(Recorded(cycle.Outputs[i]))) << Narrow(outputNames[i]);
            }
        }
        EXPECT_EQ(static_cast<std::size_t>(sink->Count), system.Cycles.size());
        cycles_ += system.Cycles.size();
    }

    /// Replays the whole file.
    void ReplayAll(bool isHostsDictionary) {
        for (const RecordedSystem& system : TestSupport::ReadCycles(TestSupport::CycleFileText())) {
            SCOPED_TRACE(system.Name);
            Replay(system, isHostsDictionary);
        }
        EXPECT_GE(cycles_, 700u);
    }

  private:
    std::size_t cycles_ = 0;
};

TEST_F(RecordedCycles, GiveTheRecordedBitsThroughTheControl) {
    ReplayAll(false);
}

TEST_F(RecordedCycles, GiveTheRecordedBitsThroughADictionaryOfTheHost) {
    ReplayAll(true);
}

} // namespace
} // namespace Quorvane
