// SPDX-License-Identifier: MIT
// Tests of tables of outputs and of their error.
#include "code/LookupTable.h"

#include <limits>

#include <gtest/gtest.h>

#include "system/DefinitionTexts.h"

namespace Quorvane::Code {
namespace {

System::FuzzySystem Read(TextView inputs, TextView outputs, TextView rules) {
    return System::FromPlainTexts({Text(inputs), Text(outputs), Text(rules)});
}

/// From 0 at 4 to 10 at 6.
System::FuzzySystem Ramp() {
    return Read(u"X/10/0/A,0,0,4,6;B,4,6,10,10", u"Y/10/0/Lo,0;Hi,10", u"X>A/Y<Lo:1|X>B/Y<Hi:1");
}

double At(const LookupTable& table, double x) {
    double y = 0;
    table.Interpolate(std::span(&x, 1), std::span(&y, 1));
    return y;
}

TEST(LookupTable, HoldsTheOutputsOfAGrid) {
    const CompiledSystem system = Compile(Ramp());
    EXPECT_EQ(LookupTable(system, 5).Numbers(), (std::vector<double>{0, 0, 0, 10, 10, 10}));
    EXPECT_EQ(LookupTable(system, 2).Numbers(), (std::vector<double>{0, 5, 10}));
}

TEST(LookupTable, InterpolatesBetweenItsPoints) {
    const CompiledSystem system = Compile(Ramp());
    const LookupTable table(system, 2);
    EXPECT_EQ(At(table, 0), 0);
    EXPECT_EQ(At(table, 2.5), 2.5);
    EXPECT_EQ(At(table, 10), 10);
    EXPECT_EQ(At(table, -3), 0);
    EXPECT_EQ(At(table, 30), 10);
    EXPECT_EQ(At(table, std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(LookupTable, MeasuresItsError) {
    const CompiledSystem system = Compile(Ramp());
    // The flank is between two points of the grid, so the table is right.
    EXPECT_NEAR(LookupTable(system, 5).Measure().Largest, 0, 1e-12);
    // The straight line from 0 to 10 is off by 4 at the ends of the flank.
    const TableError error = LookupTable(system, 2).Measure();
    EXPECT_NEAR(error.Largest, 4, 0.01);
    EXPECT_LE(error.Largest, 4);
    EXPECT_EQ(error.Output, 0U);
    EXPECT_EQ(error.LargestOf, (std::vector<double>{error.Largest}));
    // Over 0..4 by 2 in the mean, over the flank by 2, and so on.
    EXPECT_NEAR(error.MeanOf[0], 2, 0.05);
    EXPECT_GT(error.Points, 20000U);
}

TEST(GenerateTable, WritesTheErrorIntoTheHeader) {
    const GeneratedTable generated = GenerateTable(Ramp(), "ramp", 2);
    EXPECT_NE(generated.Code.Header.find("Y: at most 3.9"), std::string::npos);
    EXPECT_NE(generated.Code.Source.find("static const double table[] = {\n    0.0,\n    5.0,\n"
                                         "    10.0,\n};"),
              std::string::npos);
}

TEST(GenerateTable, RefusesTablesThatAreTooLarge) {
    EXPECT_THROW(GenerateTable(Ramp(), "ramp", 0), CodeError);
    EXPECT_THROW(GenerateTable(Ramp(), "ramp", 1'000'000), CodeError);
    EXPECT_NO_THROW(GenerateTable(Ramp(), "ramp", 1000));
    EXPECT_THROW(GenerateTable(Read(u"", u"Y/1/0/P,1", u"/Y<P:1"), "x", 2), CodeError);
    EXPECT_THROW(GenerateTable(Read(u"X/0/1/A,0,0,1,1", u"Y/1/0/P,1", u"X>A/Y<P:1"), "x", 2),
                 CodeError);
}

} // namespace
} // namespace Quorvane::Code
