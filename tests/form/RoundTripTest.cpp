// SPDX-License-Identifier: MIT
// From an empty design to computed outputs, by mouse and keyboard alone.
#include "tests/form/FormTest.h"
#include "tests/form/driving/TankDesign.h"

namespace Quorvane {
namespace {

class RoundTripTest : public FormTest {};

TEST_F(RoundTripTest, ASystemDesignedFromNothingComputesWhatWasWorkedOutByHand) {
    const auto form = Folder() / L"Tank.form";
    {
        FormProgram program(DesignArguments(SampleForm()));
        Click(program.Surface(), {200, 200});
        HWND const frame = program.OpenPropertyFrame();
        const PageHands page(program, frame);
        DesignTank(program, page, [](const std::string&, HWND) {});
        EXPECT_TRUE(IsWindowEnabled(Child(frame, Id::Apply)));
        Click(Child(frame, Id::Apply));
        Expect("the edits are applied", [&] { return !IsWindowEnabled(Child(frame, Id::Apply)); });
        program.Answer(frame, Id::Ok);
        program.SaveAs(form);
        EXPECT_EQ(program.Close(), 0U);
    }
    // The stored texts are hexadecimal, the low digit of each character first.
    EXPECT_NE(ContentOf(form).find("C456675"), std::string::npos);

    FormProgram program(RunArguments(form));
    ASSERT_TRUE(program.IsInRunMode());
    for (const TankCycle& cycle : TankCycles) {
        program.SetField(program.Field(0), cycle.Level);
        program.SetField(program.Field(1), cycle.Inflow);
        Click(Child(program.RunPanel(), Id::Fire));
        EXPECT_TRUE(WaitFor([&] { return program.Output(L"Pump") == cycle.Pump; }, 3000))
            << "Level " << std::filesystem::path(cycle.Level) << " gives "
            << std::filesystem::path(program.Output(L"Pump"));
    }
    EXPECT_EQ(program.EventCount(L"FIS.InferComplate"), 4);
    EXPECT_EQ(program.Close(), 0U);
}

} // namespace
} // namespace Quorvane
