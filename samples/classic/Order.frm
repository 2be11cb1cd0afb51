VERSION 5.00
Object = "{D62DE28A-98B2-4069-BC98-F5F9CA9661C2}#1.0#0"; "OBKCTRLS.ocx"
Begin VB.Form OrderForm 
   Caption         =   "Order"
   ClientHeight    =   3150
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4710
   LinkTopic       =   "OrderForm"
   ScaleHeight     =   3150
   ScaleWidth      =   4710
   StartUpPosition =   3  'Windows Default
   Begin OBKCTRLS.UpDownTextBox UpDownTextBox1 
      Height          =   330
      Left            =   120
      TabIndex        =   1
      Top             =   2640
      Width           =   1215
   End
   Begin OBKCTRLS.GridEdit GridEdit1 
      Height          =   2415
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   4455
   End
End
Attribute VB_Name = "OrderForm"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    UpDownTextBox1.Max = 100
    GridEdit1.GridRedraw False
    GridEdit1.ColsSet 2
    GridEdit1.BarHeaderCaptionSet 0, "Article"
    GridEdit1.BarHeaderCaptionSet 1, "Quantity"
    GridEdit1.RowsSet 0
    GridEdit1.RowAddQuick "Pencil" & vbTab & "12", 0
    GridEdit1.RowAddQuick "Eraser" & vbTab & "3", 1
    GridEdit1.GridRedraw True
End Sub

' The number field shows the quantity of the row, and sets it.
Private Sub GridEdit1_NewRowSelected()
    UpDownTextBox1.Text = GridEdit1.CellTextRead(GridEdit1.RowCurrent, 1)
End Sub

Private Sub UpDownTextBox1_Change()
    If UpDownTextBox1.Text <> GridEdit1.CellTextRead(GridEdit1.RowCurrent, 1) Then
        GridEdit1.CellTextSet GridEdit1.RowCurrent, 1, UpDownTextBox1.Text
    End If
End Sub

Private Sub GridEdit1_NewRow(newno As Integer)
    Caption = "Order, with a new row " & newno
End Sub
