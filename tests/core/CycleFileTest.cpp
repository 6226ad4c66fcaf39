// SPDX-License-Identifier: MIT
// Tests of the reader and writer of recorded cycles.
#include "tests/support/CycleFile.h"

#include <cmath>
#include <stdexcept>

#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

using TestSupport::ReadCycles;
using TestSupport::RecordedSystem;
using TestSupport::WriteSystem;

constexpr const char* Small = "system a name\n"
                              "inputs X/1/0/A,0,0,1,1|Y/1/0/B,0,0,1,1\n"
                              "outputs Z/1/0/C,1\n"
                              "rules X>A;Y>B/Z<C:1\n"
                              "cycle 3FF8000000000000 - -> 8000000000000000\n"
                              "cycle 7FF8000000000000 FFF0000000000000 !80 -> -\n";

TEST(CycleFile, ReadsSystemsWithTheirCycles) {
    const auto systems = ReadCycles("# a comment\r\n\r\n" + std::string(Small) + "system\nrules\n");
    ASSERT_EQ(systems.size(), 2U);
    const RecordedSystem& system = systems[0];
    EXPECT_EQ(system.Name, "a name");
    EXPECT_EQ(system.Inputs, "X/1/0/A,0,0,1,1|Y/1/0/B,0,0,1,1");
    EXPECT_EQ(system.Outputs, "Z/1/0/C,1");
    EXPECT_EQ(system.Rules, "X>A;Y>B/Z<C:1");
    ASSERT_EQ(system.Cycles.size(), 2U);

    ASSERT_EQ(system.Cycles[0].Inputs.size(), 2U);
    EXPECT_TRUE(SameBits(1.5, system.Cycles[0].Inputs[0].value()));
    EXPECT_EQ(system.Cycles[0].Inputs[1], std::nullopt);
    EXPECT_EQ(system.Cycles[0].FailedMessage, 0);
    ASSERT_EQ(system.Cycles[0].Outputs.size(), 1U);
    EXPECT_TRUE(SameBits(-0.0, system.Cycles[0].Outputs[0].value()));

    EXPECT_TRUE(std::isnan(system.Cycles[1].Inputs[0].value()));
    EXPECT_TRUE(SameBits(-HUGE_VAL, system.Cycles[1].Inputs[1].value()));
    EXPECT_EQ(system.Cycles[1].FailedMessage, 80);
    EXPECT_EQ(system.Cycles[1].Outputs[0], std::nullopt);

    EXPECT_EQ(systems[1].Rules, "");
    EXPECT_TRUE(systems[1].Cycles.empty());
}

TEST(CycleFile, WritesWhatItReads) {
    EXPECT_EQ(WriteSystem(ReadCycles(Small).front()), Small);
    EXPECT_EQ(WriteSystem({}), "system\ninputs\noutputs\nrules\n");
}

TEST(CycleFile, NamesTheLineThatItCannotRead) {
    struct Case {
        const char* Text;
        const char* Message;
    };
    const Case cases[] = {
        {"system a\nwhat b\n", "line 2: unknown word 'what'"},
        {"inputs x\n", "line 1: a line before the first system"},
        {"\nsystem a\n\ncycle 12G4 -> 0\n", "line 4: no number: '12G4'"},
        {"system a\ncycle !x ->\n", "line 2: no number: 'x'"},
        {"system a\ncycle  ->\n", "line 2: no number: ''"},
    };
    for (const Case& test : cases) {
        try {
            ReadCycles(test.Text);
            ADD_FAILURE() << test.Text;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), test.Message);
        }
    }
}

} // namespace
} // namespace Quorvane
