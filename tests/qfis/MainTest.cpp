// SPDX-License-Identifier: MIT
// Tests of the commands, from arguments to exit code.
#include "qfis/Main.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "qfis/Files.h"
#include "tests/qfis/Pieces.h"

namespace Quorvane::Qfis {
namespace {

constexpr std::string_view Tank = "[Fuzzy system 1]\n"
                                  "[Inputs]\n"
                                  "Level / 100 / 0\n"
                                  "Low, 0, 0, 20, 80\n"
                                  "High, 20, 80, 100, 100\n"
                                  "Inflow / 10 / 0\n"
                                  "Small, 0, 0, 0, 10\n"
                                  "Large, 0, 10, 10, 10\n"
                                  "[Outputs]\n"
                                  "Pump / 1000 / 0\n"
                                  "Off, 0\n"
                                  "Half, 500\n"
                                  "Full, 1000\n"
                                  "[Rules]\n"
                                  "Level > Low; Inflow > Small / Pump < Off : 1\n"
                                  "Level > Low; Inflow > Large / Pump < Half : 1\n"
                                  "Level > High; Inflow > Large / Pump < Full : 0.5\n";

class MainTest : public testing::Test {
  protected:
    MainTest() {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        Write("Tank.fuzzy", std::string(Tank));
    }
    ~MainTest() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).generic_string(); }
    void Write(const std::string& name, const std::string& content) const {
        WriteFile(Path(name), content);
    }
    std::string Read(const std::string& name) const { return ReadFile(Path(name)); }

    /// Runs the program; what it wrote is in Out and Err.
    int Call(std::vector<std::string> arguments, std::vector<std::string> input = {}) {
        std::ostringstream out;
        std::ostringstream err;
        Pieces in(std::move(input));
        const int code = Main(std::move(arguments), {out, err, in, false});
        Out = out.str();
        Err = err.str();
        return code;
    }

    std::string Out;
    std::string Err;

  private:
    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        (std::string("qfis_") + testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(MainTest, HelpsWithEveryCommand) {
    EXPECT_EQ(Call({"help"}), Fine);
    const std::string all = Out;
    for (const char* const command :
         {"explain", "run", "test", "table", "diff", "convert", "help"}) {
        EXPECT_NE(all.find(command), std::string::npos);
        EXPECT_EQ(Call({"help", command}), Fine);
        const std::string help = Out;
        EXPECT_EQ(Call({command, "--help"}), Fine);
        EXPECT_EQ(Out, help);
    }
    EXPECT_EQ(Call({"help", "nothing"}), BadInput);
    EXPECT_EQ(Call({}), BadInput);
    EXPECT_EQ(Call({"explain"}), BadInput);
    EXPECT_EQ(Call({"nothing"}), BadInput);
    EXPECT_FALSE(Err.empty());
}

TEST_F(MainTest, ExplainsRulesThatFire) {
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Level=65", "inflow=10"}), Fine);
    EXPECT_EQ(Out, "Inputs\n"
                   "  Level = 65: Low 0.25, High 0.75\n"
                   "  Inflow = 10: Small 0, Large 1\n"
                   "\n"
                   "Rules that fire\n"
                   "  2: IF Level IS Low AND Inflow IS Large THEN Pump IS Half\n"
                   "      strength 1 x 0.25 x 1 = 0.25\n"
                   "  3: IF Level IS High AND Inflow IS Large THEN Pump IS Full WITH 0.5\n"
                   "      strength 0.5 x 0.75 x 1 = 0.375\n"
                   "\n"
                   "Outputs\n"
                   "  Pump = (0.25 x 500 + 0.375 x 1000) / (0.25 + 0.375) = 500 / 0.625 = 800\n"
                   "      rule 2: Half at 500, 40 %\n"
                   "      rule 3: Full at 1000, 60 %\n");
}

TEST_F(MainTest, ExplainsADefault) {
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Level=120", "Inflow=10"}), Fine);
    EXPECT_NE(Out.find("  Level = 120, outside 0 to 100: Low 0, High 0\n"), std::string::npos);
    EXPECT_NE(Out.find("Rules that fire\n  none\n"), std::string::npos);
    EXPECT_NE(Out.find("  Pump = 500, the default: no rule fires\n"
                       "      rule 1 and 2 more: Level = 120 is outside 0 to 100\n"),
              std::string::npos);
}

TEST_F(MainTest, ExplainsAFailure) {
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Level=65", "Inflow="}), Findings);
    EXPECT_NE(Out.find("The cycle fails: the input Inflow has no value.\n"
                       "The control shows: Invalid linguistic input variable.\n"),
              std::string::npos);
    EXPECT_NE(Out.find("  Pump = 500, the default: the cycle failed\n"), std::string::npos);
}

TEST_F(MainTest, ExplainsAsJson) {
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Level=65", "Inflow=10", "--json"}), Fine);
    const auto json = nlohmann::json::parse(Out);
    EXPECT_EQ(json["inputs"][0]["degrees"]["High"], 0.75);
    EXPECT_EQ(json["rules"][1]["strength"], 0.375);
    EXPECT_EQ(json["outputs"][0]["value"], 800);
    EXPECT_EQ(json["outputs"][0]["contributions"][0]["share"], 0.4);
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Inflow=", "--json"}), Findings);
    EXPECT_EQ(nlohmann::json::parse(Out)["failure"]["messageId"], 80);
}

TEST_F(MainTest, TellsBadInput) {
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Lvel=65"}), BadInput);
    EXPECT_EQ(Err, "there is no input \"Lvel\"\n");
    EXPECT_EQ(Call({"explain", Path("Tank.fuzzy"), "Level=high"}), BadInput);
    EXPECT_EQ(Err, "expected a number, not \"high\"\n");
    EXPECT_EQ(Call({"explain", Path("nothing")}), BadInput);
    EXPECT_EQ(Err, Path("nothing") + ": the file cannot be read\n");
    Write("bad.fuzzy", "[Fuzzy system 1]\n[Inputs]\nLevel / x\n");
    EXPECT_EQ(Call({"explain", Path("bad.fuzzy")}), BadInput);
    EXPECT_EQ(Err,
              Path("bad.fuzzy") + ":3:9: expected a number, the upper bound of the variable\n");
    EXPECT_EQ(Call({"explain", Path("bad.fuzzy"), "--json"}), BadInput);
    EXPECT_EQ(nlohmann::json::parse(Out)["error"]["line"], 3);
}

TEST_F(MainTest, RunsReadings) {
    Write("readings.csv", "Time,Inflow,Level\r\n\"1,5\",10,65\r\n2,10,120\r\n");
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy"), Path("readings.csv")}), Fine);
    EXPECT_EQ(Out, "Time,Inflow,Level,Pump\r\n\"1,5\",10,65,800\r\n2,10,120,500\r\n");
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy"), Path("readings.csv"), "--json"}), Fine);
    EXPECT_EQ(Out, "{\"inputs\":{\"Level\":65.0,\"Inflow\":10.0},\"outputs\":{\"Pump\":800.0}}\n"
                   "{\"inputs\":{\"Level\":120.0,\"Inflow\":10.0},\"outputs\":{\"Pump\":500.0}}\n");
}

TEST_F(MainTest, RunsReadingsWithADecimalComma) {
    EXPECT_EQ(
        Call({"run", Path("Tank.fuzzy"), "--decimal", ","}, {"Level;Inflow\n65,0;10\n50;2,5\n"}),
        Fine);
    // Low 0.5, High 0.5, Small 0.75, Large 0.25: 187.5 / 0.5625... = (0.125 x 500 + 0.0625 x 1000)
    // over 0.375 + 0.125 + 0.0625.
    EXPECT_EQ(Out, "Level;Inflow;Pump\n65,0;10;800\n50;2,5;222,222222222222\n");
}

TEST_F(MainTest, AnswersEveryLineThatComes) {
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy")}, {"Level,In", "flow\n65,10\n", "65,10"}), Fine);
    EXPECT_EQ(Out, "Level,Inflow,Pump\n65,10,800\n65,10,800\n");
}

TEST_F(MainTest, GivesReadingsThatFailTheirDefaults) {
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy"), "-"}, {"Level,Inflow\n65,\n6x5,10\n65\n65,10\n"}),
              Findings);
    EXPECT_EQ(Out, "Level,Inflow,Pump\n65,,500\n6x5,10,500\n65,500\n65,10,800\n");
    EXPECT_EQ(Err, "3 of 4 readings failed and have the defaults; line 3, column 1: expected a "
                   "number, not \"6x5\"\n");
}

TEST_F(MainTest, RefusesReadingsWithoutAnInput) {
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy")}, {"Level\n65\n"}), BadInput);
    EXPECT_EQ(Err, "-:1: expected a column for the input \"Inflow\" in the header\n");
    EXPECT_EQ(Call({"run", Path("Tank.fuzzy")}, {}), BadInput);
}

TEST_F(MainTest, ChecksCases) {
    Write("cases.csv", "Level,Inflow,Pump\n65,10,800.0005\n65,10,\n120,10,499\n");
    EXPECT_EQ(Call({"test", Path("Tank.fuzzy"), Path("cases.csv"), "--tolerance", "0.001"}),
              Findings);
    EXPECT_EQ(Out, "line 4: Pump is 500.0, expected 499.0\n"
                   "3 cases, 2 outputs checked, 1 failed\n");
    EXPECT_EQ(Call({"test", Path("Tank.fuzzy"), Path("cases.csv"), "--tolerance", "1"}), Fine);
    EXPECT_EQ(Call({"test", Path("Tank.fuzzy"), Path("cases.csv"), "--json"}), Findings);
    const auto json = nlohmann::json::parse(Out);
    EXPECT_EQ(json["cases"], 3);
    EXPECT_EQ(json["failures"].size(), 2U);
    Write("bad.csv", "Level,Inflow,Pump\n65,10,much\n");
    EXPECT_EQ(Call({"test", Path("Tank.fuzzy"), Path("bad.csv")}), BadInput);
    EXPECT_EQ(Err, Path("bad.csv") + ":2:7: expected a number, not \"much\"\n");
    Write("none.csv", "Level,Inflow\n65,10\n");
    EXPECT_EQ(Call({"test", Path("Tank.fuzzy"), Path("none.csv")}), BadInput);
}

TEST_F(MainTest, Tabulates) {
    EXPECT_EQ(Call({"table", Path("Tank.fuzzy"), "-n", "2", "-o", Path("")}), Fine);
    EXPECT_EQ(Read("InData.txt"), "0,0\r\n0,5\r\n0,10\r\n50,0\r\n50,5\r\n50,10\r\n100,0\r\n"
                                  "100,5\r\n100,10\r\n");
    EXPECT_EQ(Read("OutData.txt"), "0 \r\n250 \r\n500 \r\n0 \r\n400 \r\n666.666666666667 \r\n"
                                   "500 \r\n1000 \r\n1000 \r\n");
    EXPECT_EQ(Call({"table", Path("Tank.fuzzy"), "-o", Path("nowhere")}), BadInput);
}

TEST_F(MainTest, TellsDifferences) {
    std::string other(Tank);
    other.replace(other.find("20, 80\n"), 6, "25, 80");
    Write("Other.fuzzy", other);
    EXPECT_EQ(Call({"diff", Path("Tank.fuzzy"), Path("Other.fuzzy")}), Findings);
    EXPECT_EQ(Out, "changed input Level, term Low: 0, 0, 20, 80 -> 0, 0, 25, 80\n");
    EXPECT_EQ(Call({"diff", Path("Tank.fuzzy"), Path("Tank.fuzzy"), "--json"}), Fine);
    EXPECT_EQ(Out, "[]\n");
}

TEST_F(MainTest, ConvertsThereAndBack) {
    const char* const files[] = {"Tank.form", "Tank.txt", "stored", "back.fuzzy"};
    std::string from = Path("Tank.fuzzy");
    for (const std::string file : files) {
        std::vector<std::string> arguments{"convert", from, "-o", Path(file)};
        if (file == "stored") {
            arguments.insert(arguments.end(), {"--format", "stored"});
        }
        EXPECT_EQ(Call(arguments), Fine) << Err;
        from = Path(file);
        EXPECT_EQ(Call({"diff", from, Path("Tank.fuzzy")}), Fine);
    }
    EXPECT_EQ(Call({"convert", from, "-o", Path("x.unknown")}), BadInput);
    EXPECT_EQ(Call({"convert", from, "-o", Path("nowhere/x.fuzzy")}), BadInput);
}

TEST_F(MainTest, KeepsTheRestOfAFormThatIsThere) {
    const std::string sample = std::string(QUORVANE_SAMPLES) + "/RoomHeating.form";
    Write("Room.form", ReadFile(sample));
    EXPECT_EQ(Call({"convert", Path("Tank.fuzzy"), "-o", Path("Room.form")}), Fine);
    EXPECT_EQ(Call({"diff", Path("Tank.fuzzy"), Path("Room.form")}), Fine);
    const std::string form = Read("Room.form");
    EXPECT_NE(form.find("Script = \"RoomHeating.vbs\""), std::string::npos);
    EXPECT_NE(form.find("how much too cold the room is"), std::string::npos);
}

TEST_F(MainTest, ExplainsTheSample) {
    const std::string sample = std::string(QUORVANE_SAMPLES) + "/RoomHeating.form";
    EXPECT_EQ(Call({"explain", sample, "TempDiff=1.5", "TempRate=0.25", "--json"}), Fine);
    const auto json = nlohmann::json::parse(Out);
    EXPECT_EQ(json["outputs"][0]["value"], 70);
    EXPECT_EQ(json["outputs"][1]["value"], 72);
}

} // namespace
} // namespace Quorvane::Qfis
