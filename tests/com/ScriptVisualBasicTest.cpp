// SPDX-License-Identifier: MIT
// VBScript on a loaded control, as the code behind a form.
#include "tests/com/support/ScriptRun.h"
#include "tests/com/support/TestFolder.h"

namespace Quorvane {
namespace {

using Lines = std::vector<std::string>;

class VisualBasicScript : public ControlTest {
  protected:
    static void Expect(const Placed& placed, const std::string& code, const Lines& lines,
                       TextView folder = {}) {
        ExpectLines(placed, "VBScript", code, lines, folder);
    }
};

TEST_F(VisualBasicScript, ThatEndsEarlyIsSeenToDoSo) {
    const auto placed = Run(Adder);
    for (const char* code :
         {"Host.Print 1\nErr.Raise 13\nHost.Print 2", "Host.Print 1\nFIS.NoSuchMember",
          "Host.Print 1\nFIS.Inputs = \"x\"", "Host.Print 1\nHost.Quit"}) {
        const ScriptRun run = RunScript(placed, "VBScript", code);
        EXPECT_FALSE(run.ReachedEnd) << code;
        EXPECT_EQ(run.Lines, Lines{"1"}) << code;
        EXPECT_EQ(run.Errors.size(), 1u) << code;
    }
    const ScriptRun run = RunScript(placed, "VBScript", "If x Than");
    EXPECT_FALSE(run.ReachedEnd);
    EXPECT_EQ(run.Errors.size(), 1u);
}

TEST_F(VisualBasicScript, SetsAndReadsValuesInEveryWay) {
    const auto placed = Run(Adder);
    Expect(placed, "FIS.InVals(\"X\") = 5\nFIS.Fire\nHost.Print FIS.OutVals(\"Y\")", {"133"});
    Expect(placed, "FIS.InVals.Item(\"X\") = 6\nFIS.Fire()\nHost.Print FIS.OutVals.Item(\"Y\")",
           {"134"});
    Expect(placed,
           "Dim ins, outs, name\nSet ins = FIS.InVals\nSet outs = FIS.OutVals\nname = \"X\"\n"
           "ins(name) = 7\nCall FIS.Fire\nHost.Print outs(\"Y\"), ins(\"x\"), FIS.InVals(name)",
           {"135 7 7"});
    Expect(placed,
           "Dim v\nv = 8.5\nFIS.InVals(\"X\") = v\nfis.fire\nHost.Print FIS.OutVals(\"Y\") + 1",
           {"137.5"});
    Expect(placed, "Host.Print VarType(FIS.OutVals(\"Y\")), VarType(FIS.InVals(\"X\"))", {"5 5"});
}

TEST_F(VisualBasicScript, GivesValuesOfEveryType) {
    const auto placed = Run(Adder);
    Expect(placed,
           "Sub Try(value)\nFIS.InVals(\"X\") = value\nFIS.Fire\nHost.Print FIS.OutVals(\"Y\")\n"
           "End Sub\n"
           "Try CInt(5)\nTry CLng(5)\nTry CSng(5.5)\nTry CDbl(5.5)\nTry CByte(5)\nTry CBool(1)\n"
           "Try CCur(5.25)\nTry CDate(5)\nTry \"5.5\"\nTry Null\nTry Empty\nTry \"five\"\n"
           "Try Array(5)\nTry 1000",
           {"133", "133", "133.5", "133.5", "133", "127", "133.25", "133", "133.5", "500", "500",
            "500", "500", "500"});
}

TEST_F(VisualBasicScript, WalksOverKeysAndItems) {
    const auto placed = Run(TwoInputs);
    Expect(placed,
           "Dim key, count\nFor Each key In FIS.InVals\nHost.Print key, FIS.InVals(key)\nNext\n"
           "For Each key In FIS.OutVals\nHost.Print key\nNext",
           {"A 0", "B 0", "Sum"});
    Expect(placed,
           "Dim keys, items\nFIS.InVals(\"B\") = \"text\"\nkeys = FIS.InVals.Keys\n"
           "items = FIS.InVals.Items\nHost.Print UBound(keys), keys(0), keys(1)\n"
           "Host.Print UBound(items), items(0), items(1)",
           {"1 A B", "1 0 text"});
    Expect(placed,
           "Dim key\nFor Each key In FIS.InVals.Keys\nHost.Print key\nNext\n"
           "For Each key In FIS.InVals.Items\nHost.Print key\nNext",
           {"A", "B", "0", "text"});
}

TEST_F(VisualBasicScript, UsesTheRestOfADictionary) {
    const auto placed = Run(TwoInputs);
    Expect(placed,
           "Dim d\nSet d = FIS.InVals\nHost.Print d.Count, d.Exists(\"a\"), d.Exists(\"c\"), "
           "d.CompareMode\n"
           "d.Add \"C\", 1\nd.Key(\"C\") = \"D\"\nHost.Print d.Count, d.Exists(\"D\"), d(\"D\")\n"
           "d.Remove \"D\"\nHost.Print d.Count, IsEmpty(d(\"E\")), d.Count\n"
           "d.RemoveAll\nHost.Print d.Count",
           {"2 True False 1", "3 True 1", "2 True 3", "0"});
    Expect(placed,
           "On Error Resume Next\nFIS.OutVals.Add \"Sum\", 1\nHost.Print Err.Number\nErr.Clear\n"
           "FIS.OutVals.Remove \"None\"\nHost.Print Err.Number",
           {"457", "32811"});
}

TEST_F(VisualBasicScript, AssignsDictionariesOfItsOwn) {
    const auto placed = Run(Adder);
    Expect(placed,
           "Dim ins, defaults, errors\nSet ins = CreateObject(\"Scripting.Dictionary\")\n"
           "Set FIS.InVals = ins\nins(\"X\") = 3\nFIS.Fire\nHost.Print FIS.OutVals(\"Y\")\n"
           "Host.Print FIS.InVals Is ins\n"
           "Set defaults = CreateObject(\"Scripting.Dictionary\")\ndefaults(\"Y\") = 11\n"
           "Set FIS.DefOutVals = defaults\nHost.Print FIS.OutVals(\"Y\")\n"
           "Set errors = CreateObject(\"Scripting.Dictionary\")\nerrors.Add \"Y\", \"failed\"\n"
           "Set FIS.ErrOutVals = errors\nins(\"X\") = \"none\"\nFIS.Fire\n"
           "Host.Print FIS.OutVals(\"Y\")\n"
           "Set FIS.ErrOutVals = Nothing\nFIS.Fire\nHost.Print FIS.OutVals(\"Y\")\n"
           "FIS.InVals(\"X\") = 4\nFIS.Fire\nHost.Print ins(\"X\"), FIS.OutVals(\"Y\")",
           {"131", "True", "11", "failed", "11", "4 132"});
}

TEST_F(VisualBasicScript, PassesVariablesByReference) {
    const TestFolder folder;
    const auto placed = Run(Adder);
    for (const char* part : {"CLng(2)", "2", "2.4", "\"2\"", "CByte(2)"}) {
        std::filesystem::remove(folder.File("InData.txt"));
        Expect(placed,
               std::string("Dim path, part\npath = Host.OutputFolder\npart = ") + part +
                   "\nFIS.BatchData path, part\n"
                   "Host.Print path = Host.OutputFolder, part = " +
                   part + ", VarType(part) = VarType(" + part + ")",
               {"True True True"}, folder.Path());
        EXPECT_EQ(folder.Read("InData.txt"), "-128\r\n0\r\n128\r\n") << part;
    }
    std::filesystem::remove(folder.File("InData.txt"));
    Expect(placed, "FIS.BatchData Host.OutputFolder & \"\\\", 1", {}, folder.Path());
    EXPECT_EQ(folder.Read("InData.txt"), "-128\r\n128\r\n");
    EXPECT_EQ(folder.Read("OutData.txt"), "0 \r\n256 \r\n");
}

TEST_F(VisualBasicScript, GetsTheEventOfEachCycle) {
    const TestFolder folder;
    const auto placed = Run(Adder);
    Expect(placed,
           "Dim count\nSub FIS_InferComplate\ncount = count + 1\n"
           "Host.Print count, FIS.OutVals(\"Y\")\nEnd Sub\n"
           "FIS.InVals(\"X\") = 1\nFIS.Fire\nFIS.InVals(\"X\") = \"none\"\nFIS.Fire\n"
           "FIS.BatchData Host.OutputFolder, 1",
           {"1 129", "2 500", "3 0", "4 256"}, folder.Path());
    Expect(placed,
           "Dim depth\nSub FIS_InferComplate\ndepth = depth + 1\nIf depth < 20 Then FIS.Fire\n"
           "End Sub\nFIS.Fire\nHost.Print depth",
           {"20"});
}

TEST_F(VisualBasicScript, SeesAnErrorInItsHandlerWithoutTheCycleFailing) {
    const auto placed = Run(Adder);
    const ScriptRun run =
        RunScript(placed, "VBScript",
                  "Sub FIS_InferComplate\nErr.Raise 13\nEnd Sub\nFIS.InVals(\"X\") = 2\nFIS.Fire\n"
                  "Host.Print FIS.OutVals(\"Y\")");
    EXPECT_EQ(run.Errors.size(), 1u);
    EXPECT_EQ(run.Lines, Lines{"130"});
    EXPECT_TRUE(run.ReachedEnd);
}

/// Prints number, source and description of the error that a statement gives.
std::string ErrorsOf(std::initializer_list<const char*> statements) {
    std::string code = "On Error Resume Next\nDim d\n";
    for (const char* statement : statements) {
        code += std::string(statement) +
                "\nHost.Print Err.Number & \"|\" & Err.Source & \"|\" & Err.Description\n"
                "Err.Clear\n";
    }
    return code;
}

/// The number alone.
std::string NumbersOf(std::initializer_list<const char*> statements) {
    std::string code = "On Error Resume Next\nDim d\n";
    for (const char* statement : statements) {
        code += std::string(statement) + "\nHost.Print Err.Number\nErr.Clear\n";
    }
    return code;
}

TEST_F(VisualBasicScript, GetsTheErrorsOfTheRunMode) {
    Expect(
        Run(Adder),
        NumbersOf({"FIS.Inputs = \"x\"", "FIS.Outputs = \"x\"", "FIS.Rules = \"x\"",
                   "Set FIS.InVals = Nothing", "Set FIS.DefOutVals = Nothing",
                   "Set FIS.InVals = FIS", "Set FIS.DefOutVals = FIS", "Set FIS.ErrOutVals = FIS",
                   "Set FIS.Font = FIS", "FIS.InVals = 5", "d = FIS.DataShow",
                   "Set FIS.OutVals = FIS.InVals", "Set d = FIS.DefOutVals", "FIS.NoSuchMember",
                   "FIS.BatchData", "FIS.BatchData \"x\", \"many\"", "FIS.DataShow = True"}),
        {"382", "382", "382", "13", "13", "13", "13", "13", "13", "438", "438", "438", "438", "438",
         "450", "13", "0"});
}

TEST_F(VisualBasicScript, GetsTheErrorsOfTheDesignMode) {
    Expect(Design(Adder),
           NumbersOf({"Set d = FIS.InVals", "Set d = FIS.OutVals",
                      "Set FIS.InVals = CreateObject(\"Scripting.Dictionary\")",
                      "FIS.InVals(\"X\") = 1", "FIS.DataShow = True", "FIS.Rules = FIS.Rules",
                      "FIS.Fire"}),
           {"383", "383", "383", "383", "387", "0", "0"});
}

TEST_F(VisualBasicScript, GetsSourceAndDescriptionOfTheEngine) {
    const auto running = Run(Adder);
    const auto editor = Design({Adder.Inputs, Adder.Outputs, u"broken"});
    Expect(running,
           ErrorsOf({"Set d = CreateObject(\"Scripting.Dictionary\")", "Set FIS.DefOutVals = d"}),
           {"0||", "-2147221422|Quorvane Controller|Invalid linguistict rule."});
}

TEST_F(VisualBasicScript, ReadsAndWritesTheAppearance) {
    const auto placed = Run(Adder);
    Expect(
        placed,
        "Host.Print FIS.Caption, FIS.Enabled, FIS.BackColor, FIS.ForeColor\n"
        "FIS.Caption = \"New\" & 1\nFIS.Enabled = False\nFIS.BackColor = &HFF00&\n"
        "FIS.ForeColor = &H80000005\n"
        "Host.Print FIS.Caption, FIS.Enabled, FIS.BackColor = 65280, FIS.ForeColor\n"
        "FIS.Refresh",
        {"Quorvane Inference System True -2147483643 -2147483640", "New1 False True -2147483643"});
    Expect(placed,
           "Dim f\nSet f = FIS.Font\nf.Size = 12\nf.Bold = True\nSet FIS.Font = f\n"
           "Host.Print FIS.Font.Bold, FIS.Font.Size > 11, FIS.Font.Size < 13, FIS.Font Is f",
           {"True True True True"});
    Expect(placed,
           "Host.Print Len(FIS.Inputs) > 0, Len(FIS.Rules) = " +
               std::to_string(2 * Adder.Rules.size()),
           {"True True"});
}

} // namespace
} // namespace Quorvane
