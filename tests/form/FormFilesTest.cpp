// SPDX-License-Identifier: MIT
// New, Open, Save and the two modes, with what they keep of the controls.
#include "tests/form/FormTest.h"

#include <fstream>

namespace Quorvane {
namespace {

class FormFiles : public FormTest {
  protected:
    /// The title says which file is open, whether it has changed, and the mode.
    static std::wstring TitleOf(const FormProgram& program) { return TextOf(program.Main()); }

    std::filesystem::path CopyOfSample() const {
        const auto copy = Folder() / L"Copy.form";
        std::filesystem::copy_file(SampleForm(), copy);
        return copy;
    }
};

TEST_F(FormFiles, StartsWithTheFormOfItsCommandLineInRunMode) {
    FormProgram program(RunArguments(SampleForm()));
    EXPECT_TRUE(program.IsInRunMode());
    EXPECT_EQ(TitleOf(program), L"RoomHeating.form [Run] - Quorvane Form");
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, StartsWithAnEmptyFormInDesignModeWithoutOne) {
    FormProgram program(L"");
    EXPECT_FALSE(program.IsInRunMode());
    EXPECT_EQ(TitleOf(program), L"(new form) [Design] - Quorvane Form");
    EXPECT_EQ(RowCount(Child(program.PropertyGrid(), Id::GridList)), 0);
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, OpensWhatItHasSaved) {
    const auto saved = Folder() / L"Saved.form";
    FormProgram program(L"");
    program.AddControl();
    EXPECT_EQ(TitleOf(program), L"(new form) * [Design] - Quorvane Form");
    program.SaveAs(saved);
    EXPECT_EQ(TitleOf(program), L"Saved.form [Design] - Quorvane Form");
    const std::string content = ContentOf(saved);
    EXPECT_NE(content.find("Begin QuorvaneAxEditor.FISControl FIS1"), std::string::npos) << content;
    EXPECT_NE(content.find("Caption = "), std::string::npos) << content;

    program.New();
    EXPECT_EQ(RowCount(Child(program.PropertyGrid(), Id::GridList)), 0);
    program.Open(saved);
    EXPECT_EQ(TextOf(Child(program.PropertyGrid(), Id::GridTitle)), L"FIS1");
    EXPECT_EQ(GridValue(program, L"Caption"), L"Quorvane Inference System");
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, SavesAnOpenFormUnchangedToTheByte) {
    const auto copy = CopyOfSample();
    FormProgram program(DesignArguments(copy));
    program.Save();
    const std::string first = ContentOf(copy);
    program.Save();
    EXPECT_EQ(ContentOf(copy), first);
    EXPECT_NE(first.find("Script = \"RoomHeating.vbs\""), std::string::npos);
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, AsksBeforeChangesAreLost) {
    const auto copy = CopyOfSample();
    const std::string before = ContentOf(copy);
    FormProgram program(DesignArguments(copy));
    Click(program.Surface(), {200, 200});
    Press(VK_RIGHT);
    Expect("the form has changed",
           [&] { return TitleOf(program).find(L'*') != std::wstring::npos; });
    Press('N', {VK_CONTROL});
    program.Answer(program.DialogTitled(L"Quorvane Form"), IDCANCEL);
    EXPECT_EQ(TitleOf(program), L"Copy.form * [Design] - Quorvane Form");
    Press('N', {VK_CONTROL});
    program.Answer(program.DialogTitled(L"Quorvane Form"), IDNO);
    Expect("an empty form",
           [&] { return TitleOf(program).find(L"(new form)") != std::wstring::npos; });
    EXPECT_EQ(ContentOf(copy), before);
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, KeepsAFormWhoseControlDoesNotLoad) {
    const auto broken = Folder() / L"Broken.form";
    std::ofstream(broken, std::ios::binary)
        << "Version 1\r\nBegin Form Broken\r\n    Begin QuorvaneAxEditor.FISControl FIS\r\n"
           "        Inputs = \"14F2\"\r\n    End\r\nEnd\r\n";
    FormProgram program(DesignArguments(broken));
    program.Answer(program.DialogTitled(L"Quorvane Form"), IDOK);
    EXPECT_EQ(TitleOf(program), L"Broken.form [Design] - Quorvane Form");
    EXPECT_EQ(RowCount(Child(program.PropertyGrid(), Id::GridList)), 0);
    program.Save();
    EXPECT_NE(ContentOf(broken).find("Inputs = \"14F2\""), std::string::npos);
    program.Open(SampleForm());
    EXPECT_EQ(GridValue(program, L"Caption"), L"Room heating");
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(FormFiles, KeepsTheFormThroughTheModes) {
    FormProgram program(DesignArguments(SampleForm()));
    Click(program.Surface(), {200, 200});
    for (int round = 0; round < 3; ++round) {
        program.SetRunMode(true);
        // Loaded anew: the values are the lower bounds, the log is empty.
        EXPECT_EQ(TextOf(program.Field(0)), L"-4");
        EXPECT_EQ(TextOf(program.Field(1)), L"-2");
        EXPECT_EQ(program.EventCount(L"FIS.InferComplate"), 0);
        program.SetField(program.Field(0), L"1.5");
        Click(Child(program.RunPanel(), Id::Fire));
        EXPECT_TRUE(WaitFor([&] { return program.EventCount(L"FIS.InferComplate") == 1; }, 5000));
        program.SetRunMode(false);
        EXPECT_EQ(GridValue(program, L"Caption"), L"Room heating");
    }
    EXPECT_EQ(TitleOf(program), L"RoomHeating.form [Design] - Quorvane Form");
    EXPECT_EQ(program.Close(), 0U);
}

} // namespace
} // namespace Quorvane
