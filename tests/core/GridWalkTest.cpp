// SPDX-License-Identifier: MIT
// Tests of the walk over a grid.
#include "engine/GridWalk.h"

#include <cmath>
#include <limits>

#include "shared/NumberText.h"
#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

using RunTime::GridAxis;
using RunTime::GridVisitor;
using RunTime::WalkGrid;

/// Records what a walk does; raises after so many points.
class Recorder final : public GridVisitor {
  public:
    explicit Recorder(std::size_t limit = std::numeric_limits<std::size_t>::max())
        : limit_(limit) {}

    void SetInput(std::size_t axis, double value) override {
        Inputs.resize(std::max(Inputs.size(), axis + 1));
        Inputs[axis] = value;
        Steps.push_back(std::to_string(axis) + '=' + std::string(NumberCharacters(value).View()));
    }

    void VisitPoint(std::string_view point) override {
        Points.emplace_back(point);
        Values.push_back(Inputs);
        Steps.emplace_back("visit");
        if (Points.size() == limit_) {
            throw FisError(RuntimeError::InvalidCall);
        }
    }

    std::vector<double> Inputs;
    std::vector<std::string> Points;
    std::vector<std::vector<double>> Values;
    std::vector<std::string> Steps;

  private:
    std::size_t limit_;
};

TEST(GridWalk, VisitsTheLastAxisFastest) {
    Recorder recorder;
    WalkGrid({{0, 1}, {-2, 2}}, 2, recorder);
    EXPECT_EQ(recorder.Points, (std::vector<std::string>{"0,-2", "0,0", "0,2", "0.5,-2", "0.5,0",
                                                         "0.5,2", "1,-2", "1,0", "1,2"}));
}

TEST(GridWalk, SetsAnInputOnlyWhenItTakesANewValue) {
    Recorder recorder;
    WalkGrid({{0, 1}, {5, 6}}, 1, recorder);
    EXPECT_EQ(recorder.Steps, (std::vector<std::string>{"0=0", "1=5", "visit", "1=6", "visit",
                                                        "0=1", "1=5", "visit", "1=6", "visit"}));
}

TEST(GridWalk, VisitsOnePointMoreThanDivisionsOnEachAxis) {
    struct Case {
        std::size_t Axes;
        std::int32_t Divisions;
        std::size_t Points;
    };
    const Case cases[] = {{1, 1, 2},   {1, 10, 11}, {2, 2, 9},
                          {3, 4, 125}, {5, 1, 32},  {12, 1, 4096}};
    for (const Case& test : cases) {
        Recorder recorder;
        WalkGrid(std::vector<GridAxis>(test.Axes, {0, 1}), test.Divisions, recorder);
        EXPECT_EQ(recorder.Points.size(), test.Points);
        EXPECT_EQ(recorder.Values.front(), std::vector<double>(test.Axes, 0));
        EXPECT_EQ(recorder.Values.back(), std::vector<double>(test.Axes, 1));
    }
}

TEST(GridWalk, EndsEveryAxisAtTheUpperBoundItself) {
    // -10 + 10 * ((3.3 + 10) / 10) is 3.3000000000000007.
    constexpr double Step = (3.3 + 10) / 10;
    ASSERT_NE(-10 + 10 * Step, 3.3);
    Recorder recorder;
    WalkGrid({{-10, 3.3}}, 10, recorder);
    ASSERT_EQ(recorder.Values.size(), 11U);
    for (int j = 0; j < 10; ++j) {
        EXPECT_TRUE(SameBits(-10 + j * Step, recorder.Values[static_cast<std::size_t>(j)][0])) << j;
    }
    EXPECT_TRUE(SameBits(3.3, recorder.Values[10][0]));
    EXPECT_EQ(recorder.Points[10], "3.3");
    EXPECT_EQ(recorder.Points[1], "-8.67");
}

TEST(GridWalk, WritesPointsInTheFixedForm) {
    Recorder recorder;
    WalkGrid({{0, 1}, {0, 3e-5}, {-1e20, 1e20}}, 3, recorder);
    EXPECT_EQ(recorder.Points[0], "0,0,-1E+20");
    EXPECT_EQ(recorder.Points[1], "0,0,-3.33333333333333E+19");
    EXPECT_EQ(recorder.Points[4], "0,1E-05,-1E+20");
    EXPECT_EQ(recorder.Points[21], "0.333333333333333,1E-05,-3.33333333333333E+19");
    EXPECT_EQ(recorder.Points[63], "1,3E-05,1E+20");
}

TEST(GridWalk, StartsWithTheMostDivisionsThereAre) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    Recorder recorder(3);
    EXPECT_EQ(Raised([&] {
                  WalkGrid({{0, 2147483647}, {0, 1}}, Most, recorder);
              }),
              PlatformError(RuntimeError::InvalidCall));
    ASSERT_EQ(recorder.Values.size(), 3U);
    EXPECT_EQ(recorder.Values[2][0], 0);
    EXPECT_TRUE(SameBits(2 * (1.0 / Most), recorder.Values[2][1]));
}

TEST(GridWalk, WritesTextsThatThereIsNoRoomToKeep) {
    Recorder oneAxis;
    WalkGrid({{0, 20000}}, 20000, oneAxis);
    for (const std::size_t point : {0U, 16383U, 16384U, 16385U, 20000U}) {
        EXPECT_EQ(oneAxis.Points[point], std::to_string(point));
    }
    constexpr std::size_t Axes = 20000;
    Recorder manyAxes(4);
    EXPECT_EQ(Raised([&] {
                  WalkGrid(std::vector<GridAxis>(Axes, {0, 1}), 2, manyAxes);
              }),
              PlatformError(RuntimeError::InvalidCall));
    std::string zeros;
    for (std::size_t axis = 0; axis < Axes - 2; ++axis) {
        zeros += "0,";
    }
    EXPECT_EQ(manyAxes.Points, (std::vector<std::string>{zeros + "0,0", zeros + "0,0.5",
                                                         zeros + "0,1", zeros + "0.5,0"}));
}

TEST(GridWalk, WalksDownwardsWhereTheBoundsAreTheWrongWayRound) {
    Recorder recorder;
    WalkGrid({{8, 0}}, 4, recorder);
    EXPECT_EQ(recorder.Points, (std::vector<std::string>{"8", "6", "4", "2", "0"}));
}

TEST(GridWalk, StandsStillWhereTheBoundsAreEqual) {
    Recorder recorder;
    WalkGrid({{3, 3}}, 2, recorder);
    EXPECT_EQ(recorder.Points, (std::vector<std::string>{"3", "3", "3"}));
}

TEST(GridWalk, RaisesWithoutAnAxisOrWithoutAStep) {
    Recorder recorder;
    EXPECT_EQ(Raised([&] { WalkGrid({}, 10, recorder); }),
              PlatformError(RuntimeError::SubscriptOutOfRange));
    EXPECT_EQ(Raised([&] {
                  WalkGrid({{0, 1}, {-1e308, 1e308}}, 10, recorder);
              }),
              PlatformError(RuntimeError::Overflow));
    EXPECT_TRUE(recorder.Steps.empty()) << "nothing is visited before every step is known";
}

TEST(GridWalk, EndsWhereTheVisitorRaises) {
    Recorder recorder(4);
    EXPECT_EQ(Raised([&] {
                  WalkGrid({{0, 1}, {0, 1}}, 2, recorder);
              }),
              PlatformError(RuntimeError::InvalidCall));
    EXPECT_EQ(recorder.Points.size(), 4U);
    EXPECT_EQ(recorder.Points.back(), "0.5,0");
}

} // namespace
} // namespace Quorvane
