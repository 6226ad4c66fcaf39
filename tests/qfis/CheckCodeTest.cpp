// SPDX-License-Identifier: MIT
// Tests of the commands check and code, from arguments to exit code.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "qfis/Files.h"
#include "qfis/Main.h"
#include "tests/qfis/Pieces.h"

namespace Quorvane::Qfis {
namespace {

/// Plain texts: two terms that meet, or do not.
constexpr std::string_view Sound = "X/10/0/A,0,0,4,6;B,4,6,10,10\n"
                                   "Y/10/0/Lo,0;Hi,10\n"
                                   "X>A/Y<Lo:1|X>B/Y<Hi:1\n";
constexpr std::string_view WithGap = "X/10/0/A,0,0,2,4;B,6,8,10,10\n"
                                     "Y/10/0/Lo,0;Hi,10\n"
                                     "X>A/Y<Lo:1|X>B/Y<Hi:1|X>B/Y<Lo:0.5\n";

class CheckCodeTest : public testing::Test {
  protected:
    CheckCodeTest() {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        WriteFile(Path("sound.txt"), std::string(Sound));
        WriteFile(Path("gap.txt"), std::string(WithGap));
    }
    ~CheckCodeTest() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).generic_string(); }

    int Call(std::vector<std::string> arguments) {
        std::ostringstream out;
        std::ostringstream err;
        Pieces in({});
        const int code = Main(std::move(arguments), {out, err, in, false});
        Out = out.str();
        Err = err.str();
        return code;
    }

    bool OutHas(std::string_view piece) const { return Out.find(piece) != std::string::npos; }

    std::string Out;
    std::string Err;

  private:
    std::filesystem::path folder_ = "qfis-check-code-test";
};

TEST_F(CheckCodeTest, CheckOfASoundSystemIsFine) {
    EXPECT_EQ(Call({"check", Path("sound.txt")}), Fine) << Out;
    EXPECT_TRUE(OutHas("0 errors, 0 warnings, 1 note\n")) << Out;
    EXPECT_EQ(Call({"check", std::string(QUORVANE_SAMPLES) + "/RoomHeating.form"}), Fine) << Out;
}

TEST_F(CheckCodeTest, CheckTellsFindings) {
    EXPECT_EQ(Call({"check", Path("gap.txt")}), Findings);
    for (const std::string_view piece :
         {"warning: No rule fires for Y in 20 % of the input space: X 4 to 6\n"
          "    for example at X = 5\n",
          "warning: Rules 2 and 3 have the same conditions and conclude differently about Y\n"
          "    rule 2: IF X IS B THEN Y IS Hi\n"
          "    rule 3: IF X IS B THEN Y IS Lo WITH 0.5\n",
          "0 errors, 4 warnings, "}) {
        EXPECT_TRUE(OutHas(piece)) << Out;
    }
}

TEST_F(CheckCodeTest, CheckSpeaksJson) {
    EXPECT_EQ(Call({"check", "--json", Path("gap.txt")}), Findings);
    const auto json = nlohmann::json::parse(Out);
    const auto& gap = json.at("findings").at(0);
    EXPECT_EQ(gap.at("kind"), "gap");
    EXPECT_EQ(gap.at("severity"), "warning");
    EXPECT_EQ(gap.at("outputs"), nlohmann::json({"Y"}));
    EXPECT_EQ(gap.at("region"), nlohmann::json::parse("[[4.0, 6.0]]"));
    EXPECT_EQ(gap.at("example"), nlohmann::json::parse("[5.0]"));
    EXPECT_EQ(gap.at("exact"), true);
    EXPECT_EQ(json.at("findings").at(1).at("rules"), nlohmann::json({2, 3}));
    EXPECT_EQ(json.at("warnings"), 4);
}

TEST_F(CheckCodeTest, CheckOfWhatIsNoSystemIsBadInput) {
    WriteFile(Path("bad.txt"), "X/10/0/A,0,0,x,4\nY/1/0/P,1\nX>A/Y<P:1\n");
    EXPECT_EQ(Call({"check", Path("bad.txt")}), BadInput);
    EXPECT_NE(Err.find("bad.txt:1:"), std::string::npos) << Err;
}

TEST_F(CheckCodeTest, CodeWritesSourceAndHeader) {
    EXPECT_EQ(Call({"code", Path("sound.txt"), "--c", "-o", Path("")}), Fine) << Err;
    EXPECT_NE(ReadFile(Path("sound.h")).find("int sound(const double *inputs"), std::string::npos);
    EXPECT_NE(ReadFile(Path("sound.c")).find("#include \"sound.h\""), std::string::npos);
    EXPECT_TRUE(OutHas("sound.h\n"));
    EXPECT_EQ(Call({"code", Path("sound.txt"), "-o", Path("."), "--name", "pump", "--json"}), Fine);
    EXPECT_NE(ReadFile(Path("pump.c")).find("int pump(const double *inputs"), std::string::npos);
    EXPECT_EQ(nlohmann::json::parse(Out).at("sha256").get<std::string>().size(), 64U);
}

TEST_F(CheckCodeTest, CodeMeasuresTheErrorOfATable) {
    EXPECT_EQ(Call({"code", Path("sound.txt"), "-o", Path("."), "--table", "2"}), Fine) << Err;
    EXPECT_TRUE(OutHas("    Y: at most 3.9")) << Out;
    EXPECT_EQ(Call({"code", Path("sound.txt"), "-o", Path("."), "--table", "5", "--json"}), Fine);
    const auto json = nlohmann::json::parse(Out);
    EXPECT_LT(json.at("error").at("outputs").at(0).at("largest"), 1e-12);
}

TEST_F(CheckCodeTest, CodeRefusesWhatItCannotWrite) {
    EXPECT_EQ(Call({"code", Path("sound.txt"), "--name", "for"}), BadInput);
    EXPECT_NE(Err.find("\"for\" is no name for a function of C"), std::string::npos) << Err;
    EXPECT_EQ(Call({"code", Path("sound.txt"), "--table", "0"}), BadInput);
    WriteFile(Path("none.txt"), "X/10/0/A,0,0,2,4\nY/1/0/P,1\n\n");
    EXPECT_EQ(Call({"code", Path("none.txt")}), BadInput);
}

} // namespace
} // namespace Quorvane::Qfis
