' Prints the classes that can be created by name: "made: UpDownTextBox ...".
On Error Resume Next
Dim name, made, control
' The system registers its own library of fonts when a script first asks one for its name.
name = CreateObject("StdFont").Name
For Each name In Array("UpDownTextBox", "DateCalendar", "ButtonPalette", "ButtonArrow", "GridEdit", "PageTab", "lns")
    Err.Clear
    Set control = Nothing
    Set control = CreateObject("OBKCTRLS." & name)
    If Err.Number = 0 Then made = made & " " & name
Next
WScript.Echo "made:" & made
