// SPDX-License-Identifier: MIT
// RoomHeatingTest: the sample form with its script on the real control, as the host program runs
// it.
#include "host/script/RunningForm.h"

#include <fstream>

#include "host/container/Paths.h"
#include "tests/host/Apartment.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using Lines = std::vector<std::string>;

std::filesystem::path SamplePath() {
    return std::filesystem::path(QUORVANE_SAMPLES) / "RoomHeating.form";
}

/// The control of this build. The way to it is relative, so that the build tree can be moved.
std::filesystem::path ControlPath() {
    wchar_t program[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path() / QUORVANE_PRODUCTS /
           "QuorvaneAxEditor.ocx";
}

std::string Narrow(const Text& text) {
    std::string narrow;
    for (const char16_t c : text)
        narrow += c < 0x7F ? static_cast<char>(c) : '?';
    return narrow;
}

class RoomHeatingTest : public InApartment {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    // Runs the form; its lines go to printed_, with the folder's name taken out. It must succeed.
    void Run(std::map<Text, Text> options) {
        const std::filesystem::path path = SamplePath();
        const FormFile form = ReadFormFile(path);
        const std::optional<FormScript> script = FindScript(form, path);
        ASSERT_TRUE(script.has_value());
        FormSettings settings;
        settings.Dll = ControlPath();
        settings.Locale = 0x409;
        settings.ReportError = [](const Text& line) { ADD_FAILURE() << Narrow(line); };
        settings.Services.Options = std::move(options);
        settings.Services.OutputFolder = PathText(folder_);
        settings.Services.Print = [this](const Text& line) { printed_.push_back(Narrow(line)); };
        RunningForm running(form, settings);
        EXPECT_EQ(running.RunScript(*script), 0);
    }

    // The lines of a batch file, each with its end.
    Lines FileLines(const char* name) const {
        std::ifstream stream(folder_ / name, std::ios::binary);
        Lines lines;
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line + '\n');
        return lines;
    }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorvane room";
    Lines printed_;
};

TEST_F(RoomHeatingTest, PrintsWhatWasWorkedOutByHand) {
    Run({{u"Divisions", u"4"}});
    const std::string folder = Narrow(PathText(folder_));
    EXPECT_EQ(printed_,
              (Lines{
                  "Room heating: valve and fan (%) for some readings",
                  "",
                  "   TempDiff   TempRate |      Valve        Fan | the room",
                  "-----------------------+-----------------------+------------------------------",
                  "          4          0 |        100        100 | is far too cold",
                  "        1.5       0.25 |         70         72 | is too cold, but warming",
                  "          0          0 |         25         30 | is right",
                  "          0      -0.75 |      43.75         30 | is right, but cooling down",
                  "       -0.5        0.5 |       6.25        7.5 | is a little warm, and warming",
                  "         -3          1 |          0          0 | is hot",
                  "          9          0 |         20         30 | is out of range: the defaults",
                  "",
                  "The second row is as worked out by hand in the script: 70 and 72.",
                  "",
                  "A sensor that sends no number: the cycle fails, the error outputs hold.",
                  "",
                  "     broken       0.25 |         10          0 | is unknown: the error outputs",
                  "        1.5       0.25 |         70         72 | is known again",
                  "",
                  "The control surface, from InData.txt and OutData.txt in " + folder,
                  "TempDiff from -4 (left) to 4 (right), blank = 0 %, @ = 100 %",
                  "",
                  "TempRate  Valve        Fan",
                  "       2 |      @@@@| |      ++++|",
                  "       1 |      @@@@| |      ++++|",
                  "       0 |    ::@@@@| |    --@@@@|",
                  "      -1 |    ++@@@@| |    --@@@@|",
                  "      -2 |    ++@@@@| |    --@@@@|",
                  "",
                  "InferComplate came 35 times.",
                  "DONE",
              }));
}

TEST_F(RoomHeatingTest, LeavesTheSurfaceInTwoFiles) {
    Run({});
    ASSERT_FALSE(printed_.empty());
    EXPECT_EQ(printed_.back(), "DONE");
    EXPECT_EQ(printed_.at(printed_.size() - 2), "InferComplate came 299 times.");
    const Lines points = FileLines("InData.txt");
    const Lines results = FileLines("OutData.txt");
    ASSERT_EQ(points.size(), 17u * 17u);
    ASSERT_EQ(results.size(), 17u * 17u);
    EXPECT_EQ(points.front(), "-4,-2\r\n");
    EXPECT_EQ(results.front(), "0 0 \r\n");
    EXPECT_EQ(points.at(8 * 17 + 8), "0,0\r\n");
    EXPECT_EQ(results.at(8 * 17 + 8), "25 30 \r\n");
    EXPECT_EQ(points.back(), "4,2\r\n");
    EXPECT_EQ(results.back(), "100 60 \r\n");
}

TEST_F(RoomHeatingTest, SavesWhatItLoaded) {
    const FormFile form = ReadFormFile(SamplePath());
    FormSettings settings;
    settings.Dll = ControlPath();
    settings.Design = true;
    settings.ReportError = [](const Text& line) { ADD_FAILURE() << Narrow(line); };
    RunningForm running(form, settings);
    const FormFile saved = running.Save();
    for (const char16_t* const key : {u"Inputs", u"Outputs", u"Rules"}) {
        const FormProperty* const before = form.Controls.at(0).Properties.Find(key);
        const FormProperty* const after = saved.Controls.at(0).Properties.Find(key);
        ASSERT_NE(before, nullptr);
        ASSERT_NE(after, nullptr);
        EXPECT_EQ(after->Value, before->Value);
    }
}

} // namespace
