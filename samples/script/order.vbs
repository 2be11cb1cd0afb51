' A grid without a form: fills it, saves it, loads it into another one and reads it back. Run it where the controls are
' registered:  cscript order.vbs      (a script host hears no events)
Option Explicit
On Error Resume Next

Dim grid, other, row, file, article
Set grid = CreateObject("OBKCTRLS.GridEdit")
Failed "create a grid"
grid.RowsSet 3
grid.ColsSet 2
row = 0
For Each article In Array(Array("Pencil", "12"), Array("Eraser", "3"), Array("Ruler", "7"))
    grid.CellTextSet row, 0, article(0)
    grid.CellTextSet row, 1, article(1)
    row = row + 1
Next
Failed "fill the grid"
WScript.Echo grid.RowsCurrent & " rows, the second article is " & grid.CellTextRead(1, 0)

file = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2) & "\order.txt"
grid.GridSave file, ""
Set other = CreateObject("OBKCTRLS.GridEdit")
other.GridLoad file
Failed "save and load"

Dim quantity
Set quantity = CreateObject("OBKCTRLS.UpDownTextBox")
quantity.Max = 100
quantity.Text = other.CellTextRead(0, 1)
WScript.Echo "quantity: " & quantity.Text
Failed "show the quantity"
If other.CellTextRead(1, 0) = "Eraser" And quantity.Text = "12" Then WScript.Echo "ok"

' A script says nothing of its errors by itself here.
Sub Failed(what)
    If Err.Number = 0 Then Exit Sub
    WScript.Echo "could not " & what & ": " & Err.Description
    WScript.Quit 1
End Sub
