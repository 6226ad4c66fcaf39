// SPDX-License-Identifier: MIT
// Tests that sound systems raise no alarm.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "formats/FormSystem.h"
#include "model/BuiltInDefinition.h"
#include "tests/check/CheckTest.h"

namespace Quorvane::Check {
namespace {

std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Samples, HaveNoFaults) {
    int forms = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUORVANE_SAMPLES)) {
        if (entry.path().extension() == ".form") {
            const CheckResult result =
                CheckSystem(Formats::ReadFormSystem(ContentOf(entry.path())));
            EXPECT_EQ(Faults(result), std::vector<FindingKind>{}) << entry.path();
            ++forms;
        }
    }
    EXPECT_GT(forms, 0);
}

TEST(Samples, AreJoinedByTheTankOfTheGuide) {
    const CheckResult result = CheckSystem(
        Read(u"Level/100/0/Low,0,0,20,80;High,20,80,100,100|Inflow/10/0/Small,0,0,0,10;"
             u"Large,0,10,10,10",
             u"Pump/1000/0/Off,0;Half,500;Full,1000",
             u"Level>Low;Inflow>Small/Pump<Off:1|Level>Low;Inflow>Large/Pump<Half:1"
             u"|Level>High;Inflow>Small/Pump<Half:1|Level>High;Inflow>Large/Pump<Full:0.5"));
    EXPECT_EQ(Faults(result), std::vector<FindingKind>{});
    // The flank of Level at its upper end, without inflow; there is no jump.
    ASSERT_EQ(result.Findings.size(), 1U);
    EXPECT_EQ(result.Findings[0].Kind, FindingKind::Steepest);
}

TEST(Samples, AreJoinedByTheSystemOfANewControl) {
    const System::DefinitionTexts texts{Text(Main::BuiltInInputs()), Text(Main::BuiltInOutputs()),
                                        Text(Main::BuiltInRules())};
    EXPECT_EQ(Faults(CheckSystem(System::FromStoredTexts(texts))), std::vector<FindingKind>{});
}

} // namespace
} // namespace Quorvane::Check
