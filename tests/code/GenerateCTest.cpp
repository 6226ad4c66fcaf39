// SPDX-License-Identifier: MIT
// Tests of the text of generated code.
#include "code/GenerateC.h"

#include <gtest/gtest.h>

#include "formats/TextsFile.h"
#include "shared/Sha256.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Code {
namespace {

System::FuzzySystem Read(TextView inputs, TextView outputs, TextView rules) {
    return System::FromPlainTexts({Text(inputs), Text(outputs), Text(rules)});
}

System::FuzzySystem Tank() {
    return Read(u"Level/100/0/Low,0,0,20,80;High,20,80,100,100|Inflow/10/0/Small,0,0,0,10;"
                u"Large,0,10,10,10",
                u"Pump/1000/0/Off,0;Half,500;Full,1000",
                u"Level>Low;Inflow>Small/Pump<Off:1|Level>Low;Inflow>Large/Pump<Half:1"
                u"|Level>High;Inflow>[NONE]/Pump<Full:0.5");
}

bool Has(const std::string& text, std::string_view piece) {
    return text.find(piece) != std::string::npos;
}

TEST(GeneratedHeader, DeclaresPlacesAndTheFunction) {
    const std::string header = GenerateC(Tank(), "tank").Header;
    for (const std::string_view piece :
         {"TANK_IN_LEVEL = 0, /* Level, 0.0 to 100.0 */", "TANK_IN_INFLOW = 1,", "TANK_INPUTS = 2",
          "TANK_OUT_PUMP = 0, /* Pump, 0.0 to 1000.0 */", "TANK_OUTPUTS = 1",
          "int tank(const double *inputs, double *outputs);", "#ifndef TANK_H", "extern \"C\""}) {
        EXPECT_TRUE(Has(header, piece)) << piece;
    }
}

TEST(GeneratedSource, HoldsTheSystemAsTables) {
    const std::string source = GenerateC(Tank(), "tank").Source;
    for (const std::string_view piece :
         {"{0, 0.0, 100.0, 0.0, 0.0, 20.0, 80.0}, /* Level Low */",
          "{1, 0.0, 10.0, 0.0, 10.0, 10.0, 10.0}, /* Inflow Large */", "500.0, /* Pump Half */",
          "static const double defaults[] = {500.0};", "{1.0, {1, 2}, {1}},", "{0.5, {4, 0}, {3}},",
          "#include \"tank.h\""}) {
        EXPECT_TRUE(Has(source, piece)) << piece;
    }
    // No library and no heap: the constants of the number types are all it includes.
    EXPECT_FALSE(Has(source, "math.h"));
    EXPECT_FALSE(Has(source, "alloc"));
}

TEST(GeneratedCode, TellsTheChecksumOfTheTexts) {
    const System::FuzzySystem system = Tank();
    EXPECT_EQ(ChecksumOf(system), Sha256(Formats::WritePlainTexts(system)));
    const GeneratedCode code = GenerateC(system, "tank");
    EXPECT_TRUE(Has(code.Header, ChecksumOf(system)));
    EXPECT_TRUE(Has(code.Source, ChecksumOf(system)));
}

TEST(GenerateC, RefusesWhatHasNoOutputs) {
    const TextView inputs = u"X/1/0/A,0,0,1,1";
    const TextView outputs = u"Y/1/0/P,1|Z/1/0/P,1";
    EXPECT_THROW(GenerateC(Read(inputs, outputs, u""), "x"), CodeError);
    EXPECT_THROW(GenerateC(Read(inputs, outputs, u"X>A/:1"), "x"), CodeError);
    // Every cycle fails; an output without default.
    EXPECT_THROW(GenerateC(Read(inputs, outputs, u"X>A/Y<P:1|X>A/Z<P:1"), "x"), CodeError);
    EXPECT_THROW(GenerateC(Read(inputs, outputs, u"X>A/y<P:1"), "x"), CodeError);
    EXPECT_THROW(GenerateC(Tank(), "while"), CodeError);
}

} // namespace
} // namespace Quorvane::Code
