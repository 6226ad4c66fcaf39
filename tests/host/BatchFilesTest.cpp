// SPDX-License-Identifier: MIT
// Reading the two files of a batch.
#include "host/formfile/BatchFiles.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace Quorvane::Host {
namespace {

class BatchFiles : public testing::Test {
  protected:
    BatchFiles()
        : folder_(std::filesystem::path(testing::TempDir()) /
                  (std::string("batch-") +
                   testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(folder_);
    }
    ~BatchFiles() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    void Write(const std::string& inputs, const std::string& outputs) const {
        std::ofstream(folder_ / "InData.txt", std::ios::binary) << inputs;
        std::ofstream(folder_ / "OutData.txt", std::ios::binary) << outputs;
    }

    std::filesystem::path folder_;
};

TEST_F(BatchFiles, GivesTheValuesOfEveryPoint) {
    Write("0,1\r\n-2.5,1e3\r\n0.25,0\r\n", "7\r\n8.5\r\nnothing\r\n");
    const BatchPoints points = ReadBatch(folder_, 2, 1);
    ASSERT_EQ(points.Size(), 3U);
    EXPECT_EQ(points.Input(1, 0), -2.5);
    EXPECT_EQ(points.Input(1, 1), 1000);
    EXPECT_EQ(points.Output(1, 0), 8.5);
    EXPECT_EQ(points.Output(2, 0), 0) << "what is no number counts as 0";
}

TEST_F(BatchFiles, RefusesWhatIsNotOfSuchASystem) {
    struct Case {
        const char* Inputs;
        const char* Outputs;
    };
    const Case cases[] = {
        {"1\n2\n", "7\n8\n"},          // one input instead of two
        {"1,2,3\n", "7\n"},            // three
        {"1,2\n\n3,4\n", "7\n8\n9\n"}, // a blank line
        {"1,2\n3\n", "7\n8\n"},        // broken off
        {"1,2\n3,4\n", "7,8\n9,10\n"}, // two outputs instead of one
        {"1,2\n3,4\n", "7\n"},         // fewer outputs than inputs
        {"", ""},                      // nothing
    };
    for (const Case& each : cases) {
        Write(each.Inputs, each.Outputs);
        EXPECT_THROW(ReadBatch(folder_, 2, 1), std::runtime_error) << each.Inputs;
    }
}

TEST_F(BatchFiles, RefusesAFolderWithoutThem) {
    EXPECT_THROW(ReadBatch(folder_, 2, 1), std::runtime_error);
}

} // namespace
} // namespace Quorvane::Host
