' A host without a type library, a container or a window. Ends with "ok", or says what went wrong: the interpreter
' itself reports no error, so that every step is checked here.
Option Explicit
On Error Resume Next

Dim failures
failures = 0

Sub Check(what, actual, expected)
    If Err.Number <> 0 Then
        WScript.Echo what & ": error " & Hex(Err.Number) & " " & Err.Description
        failures = failures + 1
        Err.Clear
    ElseIf actual <> expected Then
        WScript.Echo what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Dim box, arrow, line, text, versioned
Set box = CreateObject("OBKCTRLS.UpDownTextBox")
Set arrow = CreateObject("OBKCTRLS.ButtonArrow")
Set line = CreateObject("OBKCTRLS.lns")
Set versioned = CreateObject("OBKCTRLS.UpDownTextBox.1")
Check "creation", Err.Number, 0

Check "a fresh Interval", box.Interval, 0
box.Interval = 0.25
Check "Interval", box.interval, 0.25
box.Max = "20"
Check "Max from a text", box.Max, 20
box.Text = 15
Check "Text from a number", box.Text, "15"
box.BackColor = &H80000005
Check "a system colour", box.BackColor, &H80000005
box.Enabled = False
Check "Enabled", box.Enabled, False

text = "12.5"
Check "KeyLock with a variable", box.KeyLock(46, True, text), 0
Check "KeyLock with a value", box.KeyLock(46, True, "125"), 46
Check "the variable", text, "12.5"
Check "DecimalpointCheck", box.DecimalpointCheck("1,5"), 0
Check "ShiftColor", box.ShiftColor(RGB(250, 250, 250), 20, False), RGB(251, 251, 255)
box.Refresh
box.RefreshFont
Check "methods without a result", 0, 0

box.Font.Bold = True
Check "a change of the font", box.Font.Bold, True
Set versioned.Font = box.Font
Check "a shared font", versioned.Font.Bold, True
arrow.EnabledCol True
line.ColorRefresh
Check "the other controls", 0, 0

box.Max = "many"
If Err.Number <> 13 Then
    WScript.Echo "a text that is no number gave error " & Err.Number
    failures = failures + 1
End If
Err.Clear
Check "Max afterwards", box.Max, 20
box.NoSuchMember = 1
If Err.Number <> 438 Then
    WScript.Echo "an unknown member gave error " & Err.Number
    failures = failures + 1
End If
Err.Clear

Set box = Nothing
If failures > 0 Then WScript.Quit 1
WScript.Echo "ok"
