// SPDX-License-Identifier: MIT
// JScript on a loaded control, as the code behind a form.
#include "tests/com/support/ScriptRun.h"
#include "tests/com/support/TestFolder.h"

namespace Quorvane {
namespace {

using Lines = std::vector<std::string>;

class JavaScript : public ControlTest {
  protected:
    static void Expect(const Placed& placed, const std::string& code, const Lines& lines,
                       TextView folder = {}) {
        ExpectLines(placed, "JScript", code, lines, folder);
    }
};

TEST_F(JavaScript, ThatEndsEarlyIsSeenToDoSo) {
    const auto placed = Run(Adder);
    for (const char* code : {"Host.Print(1); throw new Error('x'); Host.Print(2);",
                             "Host.Print(1); FIS.NoSuchMember();",
                             "Host.Print(1); FIS.Inputs = 'x';", "Host.Print(1); Host.Quit();"}) {
        const ScriptRun run = RunScript(placed, "JScript", code);
        EXPECT_FALSE(run.ReachedEnd) << code;
        EXPECT_EQ(run.Lines, Lines{"1"}) << code;
        EXPECT_EQ(run.Errors.size(), 1u) << code;
    }
}

TEST_F(JavaScript, SetsAndReadsValuesInEveryWay) {
    const auto placed = Run(Adder);
    Expect(placed, "FIS.InVals('X') = 5; FIS.Fire(); Host.Print(FIS.OutVals('Y'));", {"133"});
    Expect(placed, "FIS.InVals.Item('X') = 6; FIS.Fire(); Host.Print(FIS.OutVals.Item('Y') + 1);",
           {"135"});
    Expect(placed,
           "var ins = FIS.InVals, outs = FIS.OutVals; ins.Item('X') = 7.5; FIS.Fire();"
           "Host.Print(outs('Y'), ins('x'), typeof outs('Y'));",
           {"135.5 7.5 number"});
    Expect(placed,
           "function Try(value) { FIS.InVals('X') = value; FIS.Fire();"
           "Host.Print(FIS.OutVals('Y')); }"
           "Try(true); Try('5.5'); Try(null); Try(undefined); Try('five'); Try(NaN);",
           {"127", "133.5", "500", "500", "500", "500"});
}

TEST_F(JavaScript, WalksOverKeysAndItems) {
    const auto placed = Run(TwoInputs);
    Expect(placed,
           "for (var e = new Enumerator(FIS.InVals); !e.atEnd(); e.moveNext())"
           "{ Host.Print(e.item(), FIS.InVals(e.item())); }"
           "var keys = new VBArray(FIS.InVals.Keys()).toArray();"
           "var items = new VBArray(FIS.InVals.Items()).toArray();"
           "Host.Print(keys.length, keys.join(), items.join());"
           "Host.Print(FIS.InVals.Count, FIS.InVals.Exists('b'), FIS.InVals.Exists('c'));",
           {"A 0", "B 0", "2 A,B 0,0", "2 True False"});
}

TEST_F(JavaScript, AssignsDictionariesOfItsOwn) {
    const auto placed = Run(Adder);
    Expect(placed,
           "var ins = new ActiveXObject('Scripting.Dictionary'); FIS.InVals = ins;"
           "ins.Item('X') = 3; FIS.Fire(); Host.Print(FIS.OutVals('Y'));"
           "var values = new ActiveXObject('Scripting.Dictionary'); values.Add('Y', 11);"
           "FIS.DefOutVals = values; Host.Print(FIS.OutVals('Y'));"
           "FIS.ErrOutVals = values; ins.Item('X') = 'none'; FIS.Fire(); "
           "Host.Print(FIS.OutVals('Y'));",
           {"131", "11", "11"});
}

TEST_F(JavaScript, PassesVariablesToABatch) {
    const TestFolder folder;
    const auto placed = Run(Adder);
    Expect(placed,
           "var path = Host.OutputFolder, part = 2; FIS.BatchData(path, part);"
           "Host.Print(path == Host.OutputFolder, part);",
           {"True 2"}, folder.Path());
    EXPECT_EQ(folder.Read("InData.txt"), "-128\r\n0\r\n128\r\n");
    EXPECT_EQ(folder.Read("OutData.txt"), "0 \r\n128 \r\n256 \r\n");
}

TEST_F(JavaScript, GetsTheEventOfEachCycle) {
    Expect(Run(Adder),
           "var count = 0; function FIS_InferComplate() { Host.Print(++count, FIS.OutVals('Y')); }"
           "FIS.InVals('X') = 1; FIS.Fire(); FIS.InVals('X') = 'none'; FIS.Fire();",
           {"1 129", "2 500"});
}

/// Prints the number of the error that each statement gives, 0 for none. A type mismatch of the
/// call itself is 5 or 13, as the engine words it, and is printed as 13.
std::string NumbersOf(std::initializer_list<const char*> statements) {
    std::string code =
        "function NumberOf(e) { var n = e.number & 0xFFFF; return n == 5 ? 13 : n; }";
    for (const char* statement : statements) {
        code += std::string("try { ") + statement +
                "; Host.Print(0); } catch (e) { Host.Print(NumberOf(e)); }\n";
    }
    return code;
}

TEST_F(JavaScript, GetsTheErrorsOfBothModes) {
    Expect(Run(Adder),
           NumbersOf({"FIS.Inputs = 'x'", "FIS.Rules = 'x'", "FIS.InVals = FIS",
                      "FIS.DefOutVals = FIS", "FIS.ErrOutVals = FIS", "FIS.DataShow = true"}),
           {"382", "382", "13", "13", "13", "0"});
    Expect(Design(Adder),
           NumbersOf({"var d = FIS.InVals", "var d = FIS.OutVals", "FIS.InVals('X') = 1",
                      "FIS.DataShow = true", "FIS.Rules = FIS.Rules", "FIS.Fire()"}),
           {"383", "383", "383", "387", "0", "0"});
}

TEST_F(JavaScript, GetsTheDescriptionOfTheEngine) {
    const auto running = Run(Adder);
    const auto editor = Design({Adder.Inputs, Adder.Outputs, u"broken"});
    Expect(running,
           "try { FIS.DefOutVals = new ActiveXObject('Scripting.Dictionary'); }"
           "catch (e) { Host.Print(e.number, e.description); }",
           {"-2147221422 Invalid linguistict rule."});
}

TEST_F(JavaScript, ReadsAndWritesTheAppearance) {
    Expect(Run(Adder),
           "FIS.Caption = 'New'; FIS.Enabled = false; FIS.BackColor = 0xFF00;"
           "Host.Print(FIS.Caption, FIS.Enabled, FIS.BackColor, FIS.ForeColor);"
           "FIS.Font.Bold = true; Host.Print(FIS.Font.Bold); FIS.Refresh();",
           {"New False 65280 -2147483640", "True"});
}

} // namespace
} // namespace Quorvane
