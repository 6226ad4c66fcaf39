' RoomHeating.vbs: the script behind RoomHeating.form.
'
' The host makes the control known as FIS and itself as Host. It calls Form_Load when the form is
' loaded, and FIS_InferComplate each time the control has finished an inference cycle.
Option Explicit

Dim cycles
cycles = 0

Sub Form_Load()
    SetSafeOutputs
    ShowSomeCycles
    CheckTheWorkedExample
    ShowAFailingCycle
    ShowTheSurface
    Host.Print
    Host.Print "InferComplate came " & cycles & " times."
    Host.Print "DONE"
End Sub

Sub FIS_InferComplate()
    cycles = cycles + 1
End Sub

' What the outputs are to be where no rule fires (readings outside their ranges), and after a cycle
' that failed (a broken sensor): the room must not freeze.
Sub SetSafeOutputs()
    Set FIS.DefOutVals = TwoOutputs(20, 30)
    Set FIS.ErrOutVals = TwoOutputs(10, 0)
End Sub

Function TwoOutputs(valve, fan)
    Dim values
    Set values = CreateObject("Scripting.Dictionary")
    values.Add "Valve", valve
    values.Add "Fan", fan
    Set TwoOutputs = values
End Function

Sub ShowSomeCycles()
    Host.Print "Room heating: valve and fan (%) for some readings"
    Host.Print
    Host.Print "   TempDiff   TempRate |      Valve        Fan | the room"
    Host.Print "-----------------------+-----------------------+------------------------------"
    ShowCycle  4,    0,     "is far too cold"
    ShowCycle  1.5,  0.25,  "is too cold, but warming"
    ShowCycle  0,    0,     "is right"
    ShowCycle  0,   -0.75,  "is right, but cooling down"
    ShowCycle -0.5,  0.5,   "is a little warm, and warming"
    ShowCycle -3,    1,     "is hot"
    ShowCycle  9,    0,     "is out of range: the defaults"
End Sub

Sub ShowCycle(tempDiff, tempRate, remark)
    Fire tempDiff, tempRate
    Host.Print Column(tempDiff) & Column(tempRate) & " |" & _
        Column(Output("Valve")) & Column(Output("Fan")) & " | " & remark
End Sub

Sub Fire(tempDiff, tempRate)
    Dim inputs
    Set inputs = FIS.InVals
    inputs.Item("TempDiff") = tempDiff
    inputs.Item("TempRate") = tempRate
    FIS.Fire
End Sub

Function Output(name)
    Dim outputs
    Set outputs = FIS.OutVals
    Output = outputs.Item(name)
End Function

' The second row of the table, worked out by hand.
'
' TempDiff 1.5 lies halfway between the peak of Cool (1) and the point from which Cold is full (2):
'     Cool 0.5, Cold 0.5
' TempRate 0.25 lies a quarter of the way from Steady (0) to Rising (1):
'     Steady 0.75, Rising 0.25
' Four rules fire, each as strongly as the product of its degrees and its weight:
'     Cool, Steady    0.5 x 0.75        = 0.375     Valve  50, Fan  60
'     Cool, Rising    0.5 x 0.25        = 0.125     Valve  25, Fan  30
'     Cold, Steady    0.5 x 0.75        = 0.375     Valve 100, Fan 100
'     Cold, Rising    0.5 x 0.25 x 0.5  = 0.0625    Valve 100, Fan  60
' Together 0.9375. Each output is the average by strength:
'     Valve  (0.375 x 50 + 0.125 x 25 + 0.375 x 100 + 0.0625 x 100) / 0.9375 = 65.625 / 0.9375 = 70
'     Fan    (0.375 x 60 + 0.125 x 30 + 0.375 x 100 + 0.0625 x  60) / 0.9375 = 67.5   / 0.9375 = 72
Sub CheckTheWorkedExample()
    Fire 1.5, 0.25
    If Output("Valve") <> 70 Or Output("Fan") <> 72 Then
        Err.Raise vbObjectError + 1, "RoomHeating", "the outputs are not those worked out by hand"
    End If
    Host.Print
    Host.Print "The second row is as worked out by hand in the script: 70 and 72."
End Sub

Sub ShowAFailingCycle()
    Host.Print
    Host.Print "A sensor that sends no number: the cycle fails, the error outputs hold."
    Host.Print
    ShowCycle "broken", 0.25, "is unknown: the error outputs"
    ShowCycle 1.5,      0.25, "is known again"
End Sub

' BatchData lets the control walk over a grid of readings and write two files; this shows them as a
' picture. A value given on the command line, such as Divisions=8, makes it coarser.
Sub ShowTheSurface()
    Dim divisions, valve, fan, row
    divisions = CLng(Host.Option("Divisions", 16))
    FIS.BatchData Host.OutputFolder, (divisions)
    ReadOutputs divisions, valve, fan
    Host.Print
    Host.Print "The control surface, from InData.txt and OutData.txt in " & Host.OutputFolder
    Host.Print "TempDiff from -4 (left) to 4 (right), blank = 0 %, @ = 100 %"
    Host.Print
    Host.Print "TempRate  " & Left("Valve" & Space(2 * divisions + 5), 2 * divisions + 5) & "Fan"
    For row = divisions To 0 Step -1
        Host.Print Right(Space(8) & Rounded(-2 + row * 4 / divisions), 8) & _
            " |" & Picture(valve, divisions, row) & "| |" & Picture(fan, divisions, row) & "|"
    Next
End Sub

' The outputs of grid point (column, row) go to index column * (divisions + 1) + row, the order of the
' lines in the files: the last input varies fastest.
Sub ReadOutputs(divisions, valve, fan)
    Dim files, points, results, last, i, fields
    last = (divisions + 1) * (divisions + 1) - 1
    ReDim valve(last)
    ReDim fan(last)
    Set files = CreateObject("Scripting.FileSystemObject")
    Set points = files.OpenTextFile(Host.OutputFolder & "\InData.txt", 1)
    Set results = files.OpenTextFile(Host.OutputFolder & "\OutData.txt", 1)
    For i = 0 To last
        CheckPoint points.ReadLine, i, divisions
        fields = Split(results.ReadLine, " ")
        valve(i) = Number(fields(0))
        fan(i) = Number(fields(1))
    Next
    If Not (points.AtEndOfStream And results.AtEndOfStream) Then
        Err.Raise vbObjectError + 2, "RoomHeating", "the batch files have too many lines"
    End If
    points.Close
    results.Close
End Sub

Sub CheckPoint(line, index, divisions)
    Dim fields, column, row
    fields = Split(line, ",")
    column = index \ (divisions + 1)
    row = index Mod (divisions + 1)
    If Abs(Number(fields(0)) - (-4 + column * 8 / divisions)) > 0.000001 Or _
        Abs(Number(fields(1)) - (-2 + row * 4 / divisions)) > 0.000001 Then
        Err.Raise vbObjectError + 3, "RoomHeating", "InData.txt has an unexpected line: " & line
    End If
End Sub

Function Picture(values, divisions, row)
    Dim column, shade, text
    For column = 0 To divisions
        shade = Int(values(column * (divisions + 1) + row) / 100 * 9 + 0.5)
        text = text & String(2, Mid(" .:-=+*#%@", shade + 1, 1))
    Next
    Picture = text
End Function

' The files have a decimal point everywhere; CDbl wants the user's own decimal sign.
Function Number(text)
    Number = CDbl(Replace(text, ".", Mid(CStr(1.5), 2, 1)))
End Function

' To two decimals.
Function Rounded(value)
    Rounded = Int(value * 100 + 0.5) / 100
End Function

Function Column(value)
    Dim text
    text = value
    If IsNumeric(value) Then text = Rounded(value)
    Column = Right(Space(11) & text, 11)
End Function
