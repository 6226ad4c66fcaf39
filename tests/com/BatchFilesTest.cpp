// SPDX-License-Identifier: MIT
// The two files of a batch, byte for byte.
#include "tests/com/support/BatchTest.h"

namespace Quorvane {
namespace {

class BatchFiles : public BatchTest {};

/// N = 4 P + 2 Q + R for inputs at their bounds 0 and 1.
constexpr System ThreeInputs = {
    u"P/1/0/Lo,0,0,0,1;Hi,0,1,1,1|Q/1/0/Lo,0,0,0,1;Hi,0,1,1,1|R/1/0/Lo,0,0,0,1;Hi,0,1,1,1",
    u"N/9/0/N0,0;N1,1;N2,2;N3,3;N4,4;N5,5;N6,6;N7,7",
    u"P>Lo;Q>Lo;R>Lo/N<N0:1|P>Lo;Q>Lo;R>Hi/N<N1:1|P>Lo;Q>Hi;R>Lo/N<N2:1|P>Lo;Q>Hi;R>Hi/N<N3:1|"
    u"P>Hi;Q>Lo;R>Lo/N<N4:1|P>Hi;Q>Lo;R>Hi/N<N5:1|P>Hi;Q>Hi;R>Lo/N<N6:1|P>Hi;Q>Hi;R>Hi/N<N7:1",
};

TEST_F(BatchFiles, OfOneInputHaveOneValuePerLine) {
    Batch(Run(Adder), 2);
    ExpectFiles("-128\r\n0\r\n128\r\n", "0 \r\n128 \r\n256 \r\n");
}

TEST_F(BatchFiles, OfTwoInputsVaryTheSecondFastest) {
    Batch(Run(TwoInputs), 2);
    ExpectFiles("0,0\r\n0,2\r\n0,4\r\n1,0\r\n1,2\r\n1,4\r\n2,0\r\n2,2\r\n2,4\r\n",
                "0 \r\n2 \r\n4 \r\n4 \r\n6 \r\n8 \r\n8 \r\n10 \r\n12 \r\n");
}

TEST_F(BatchFiles, OfThreeInputsVaryTheLastFastest) {
    Batch(Run(ThreeInputs), 1);
    ExpectFiles("0,0,0\r\n0,0,1\r\n0,1,0\r\n0,1,1\r\n1,0,0\r\n1,0,1\r\n1,1,0\r\n1,1,1\r\n",
                "0 \r\n1 \r\n2 \r\n3 \r\n4 \r\n5 \r\n6 \r\n7 \r\n");
}

TEST_F(BatchFiles, HaveABlankAfterEachOutput) {
    Batch(Run(TwoOutputs), 2);
    ExpectFiles("-128\r\n0\r\n128\r\n", "0 256 \r\n128 128 \r\n256 0 \r\n");
}

TEST_F(BatchFiles, WithoutADivisionHaveTheBoundsAlone) {
    Batch(Run(Adder), 1);
    ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
}

TEST_F(BatchFiles, OfZeroOrNegativePartsHaveTenDivisions) {
    const auto placed = Run(Silent(u"X/20/-30/Any,-30,-30,20,20"));
    for (const LONG part : {0L, -1L, -10L, std::numeric_limits<LONG>::min(), 10L}) {
        SCOPED_TRACE(part);
        Batch(placed, part);
        ExpectFiles("-30\r\n-25\r\n-20\r\n-15\r\n-10\r\n-5\r\n0\r\n5\r\n10\r\n15\r\n20\r\n",
                    "500 \r\n500 \r\n500 \r\n500 \r\n500 \r\n500 \r\n500 \r\n500 \r\n500 \r\n"
                    "500 \r\n500 \r\n");
    }
}

TEST_F(BatchFiles, WriteNumbersWithAPointAndFifteenDigits) {
    const struct {
        TextView Inputs;
        LONG Part;
        const char* Expected;
    } cases[] = {
        {u"X/1/0/A,0,0,1,1", 4, "0\r\n0.25\r\n0.5\r\n0.75\r\n1\r\n"},
        {u"X/1/0/A,0,0,1,1", 3, "0\r\n0.333333333333333\r\n0.666666666666667\r\n1\r\n"},
        {u"X/1E-05/0/A,0,0,0,0", 2, "0\r\n5E-06\r\n1E-05\r\n"},
        {u"X/1E20/-1E20/A,0,0,0,0", 2, "-1E+20\r\n0\r\n1E+20\r\n"},
        {u"X/1E15/999999999999998/A,0,0,0,0", 2, "999999999999998\r\n999999999999999\r\n1E+15\r\n"},
        // The sum of a tenth and two tenths is not quite three.
        {u"X/0.5/0.1/A,0,0,0,0", 4, "0.1\r\n0.2\r\n0.3\r\n0.4\r\n0.5\r\n"},
        // 10 x 1.33 - 10 is a little more than 3.3, but the last point is the bound itself.
        {u"X/3.3/-10/A,0,0,0,0", 10,
         "-10\r\n-8.67\r\n-7.34\r\n-6.01\r\n-4.68\r\n-3.35\r\n-2.02\r\n-0.69\r\n0.640000000000001"
         "\r\n1.97\r\n3.3\r\n"},
        // The smallest number has no half.
        {u"X/5E-324/0/A,0,0,0,0", 2, "0\r\n0\r\n4.94065645841247E-324\r\n"},
    };
    for (const auto& [inputs, part, expected] : cases) {
        SCOPED_TRACE(expected);
        Batch(Run(Silent(inputs)), part);
        EXPECT_EQ(Folder().Read("InData.txt"), expected);
    }
}

TEST_F(BatchFiles, WalkDownwardsWhereTheBoundsAreTheWrongWayRound) {
    Batch(Run({u"X/-1/1/Any,-1,-1,1,1", Adder.Outputs, u"X>Any/Y<Top:1"}), 2);
    // Between such bounds there is nothing, so no rule fires.
    ExpectFiles("1\r\n0\r\n-1\r\n", "500 \r\n500 \r\n500 \r\n");
}

TEST_F(BatchFiles, OfASystemWithoutOutputsHaveEmptyLines) {
    Batch(Run({Adder.Inputs, u"", u""}), 2);
    ExpectFiles("-128\r\n0\r\n128\r\n", "\r\n\r\n\r\n");
}

TEST_F(BatchFiles, OfAnEmptyRuleBaseHaveEmptyValues) {
    Batch(Run({Adder.Inputs, TwoOutputs.Outputs, u""}), 1);
    ExpectFiles("-128\r\n128\r\n", "  \r\n  \r\n");
}

TEST_F(BatchFiles, OfAThousandPointsAreWhole) {
    Batch(Run(TwoInputs), 40);
    const std::string inData = Folder().Read("InData.txt");
    const std::string outData = Folder().Read("OutData.txt");
    std::string expectedIn;
    std::size_t lines = 0;
    for (int a = 0; a <= 40; ++a) {
        for (int b = 0; b <= 40; ++b, ++lines) {
            // Twentieths and tenths, which have two decimals at most.
            const auto decimal = [](int hundredths) {
                std::string text = std::to_string(hundredths / 100);
                if (hundredths % 100 != 0) {
                    text += '.';
                    text += static_cast<char>('0' + hundredths / 10 % 10);
                    text += hundredths % 10 != 0 ? "5" : "";
                }
                return text;
            };
            expectedIn += decimal(a * 5) + ',' + decimal(b * 10) + "\r\n";
        }
    }
    EXPECT_EQ(inData, expectedIn);
    EXPECT_EQ(static_cast<std::size_t>(std::count(outData.begin(), outData.end(), '\n')), lines);
    EXPECT_TRUE(outData.ends_with("\r\n12 \r\n"));
}

TEST_F(BatchFiles, AreTheSameForBothFormsOfThePath) {
    const auto placed = Run(Adder);
    for (const TextView end : {TextView(u""), TextView(u"\\")}) {
        EXPECT_TRUE(RunBatch(placed, Folder().Path() + Text(end), 1).empty());
        ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
        EXPECT_EQ(Folder().Names(), (std::vector<std::string>{"InData.txt", "OutData.txt"}));
        std::filesystem::remove(Folder().File("InData.txt"));
        std::filesystem::remove(Folder().File("OutData.txt"));
    }
}

TEST_F(BatchFiles, GoIntoAFolderOfAnyName) {
    const TestFolder folder(u"\u00E4 \u6E29\u5EA6 'x'");
    EXPECT_TRUE(RunBatch(Run(Adder), folder.Path(), 1).empty());
    EXPECT_EQ(folder.Read("InData.txt"), "-128\r\n128\r\n");
    EXPECT_EQ(folder.Read("OutData.txt"), "0 \r\n256 \r\n");
}

TEST_F(BatchFiles, ReplaceThoseThatAreThere) {
    const std::string old(100000, 'x');
    Folder().Write("InData.txt", old);
    Folder().Write("outdata.TXT", old);
    Folder().Write("Other.txt", "kept");
    Batch(Run(Adder), 1);
    ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
    EXPECT_EQ(Folder().Read("Other.txt"), "kept");
    EXPECT_EQ(Folder().Names(),
              (std::vector<std::string>{"InData.txt", "Other.txt", "OutData.txt"}));
}

TEST_F(BatchFiles, ComeFromALateBoundCallToo) {
    const auto placed = Run(Adder);
    const Com::Variant path(Folder().Path());
    VARIANT arguments[] = {Com::Variant(1).Get(), path.Get()};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXPECT_EQ(placed->Invoke(0x60030014, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                             &parameters, nullptr, nullptr, nullptr),
              S_OK);
    ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
}

} // namespace
} // namespace Quorvane
