Attribute VB_Name = "Order"
Option Explicit

' For Access, Excel and the other hosts of VBA: import this module, and imports\OBKCTRLS.bas for the constants. It fills a
' grid that exists without a form; with a grid on a form hand that to FillArticles.

Public Sub ShowOrder()
    Dim grid As Object, quantity As Object
    Set grid = CreateObject("OBKCTRLS.GridEdit")
    FillArticles grid
    Set quantity = CreateObject("OBKCTRLS.UpDownTextBox")
    quantity.Max = 100
    quantity.Text = grid.CellTextRead(0, 1)
    MsgBox grid.RowsCurrent & " rows, " & quantity.Text & " of " & grid.CellTextRead(0, 0)
End Sub

Public Sub FillArticles(ByVal grid As Object)
    grid.GridRedraw False
    grid.ColsSet 2
    grid.RowsSet 0
    grid.RowAddQuick "Pencil" & vbTab & "12", 0
    grid.RowAddQuick "Eraser" & vbTab & "3", 1
    grid.GridRedraw True
End Sub
