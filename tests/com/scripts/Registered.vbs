' The registered control without a form: creation by name, appearance, error numbers, Fire.
Option Explicit

Dim fis, font

Set fis = CreateObject("QuorvaneAxEditor.FISControl")
WScript.Echo fis.Caption & ", " & fis.Enabled & ", " & fis.BackColor & ", " & fis.ForeColor
fis.Caption = "Cooling"
fis.Enabled = False
fis.BackColor = &H80000005
fis.ForeColor = 255
WScript.Echo fis.Caption & ", " & fis.Enabled & ", " & fis.BackColor & ", " & fis.ForeColor
Set font = fis.Font
font.Bold = True
Set fis.Font = font
WScript.Echo fis.Font.Bold & ", " & (fis.Font Is font)

fis.Refresh
fis.Fire
fis.DataShow = True
fis.Fire
WScript.Echo "fired"
WScript.Echo "[" & fis.Inputs & fis.Outputs & fis.Rules & "]"
WScript.Echo "no values: " & (fis.InVals Is Nothing)

Dim second
Set second = CreateObject("QuorvaneAxEditor.FISControl.1")
WScript.Echo second.Caption & ", " & second.Enabled
Set second = Nothing

On Error Resume Next
fis.Inputs = "x"
WScript.Echo Err.Number
Err.Clear
Set fis.InVals = Nothing
WScript.Echo Err.Number
Err.Clear
Set fis.InVals = fis
WScript.Echo Err.Number
Err.Clear
fis.NoSuchMember
WScript.Echo Err.Number
Err.Clear
Set fis.DefOutVals = CreateObject("Scripting.Dictionary")
WScript.Echo Err.Number & "|" & Err.Source & "|" & Err.Description
WScript.Echo "DONE"
