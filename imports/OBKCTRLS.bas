Attribute VB_Name = "OBKCTRLS_Constants"
Option Explicit
' Orbek Controls 1.0.0: for code that creates the controls by name. With a reference to the type
' library the same names are known already.

' ButtonTypesdd: Kinds of a button; all look the same, and a form keeps which one it was given
Public Const CButton As Long = 1
Public Const CFlat As Long = 2
Public Const CSoft As Long = 3
Public Const CRaised As Long = 4
Public Const CSunken As Long = 5
Public Const CEtched As Long = 6
Public Const CBump As Long = 7
Public Const CFramed As Long = 8
Public Const CBorderless As Long = 9
Public Const CToolbar As Long = 10
Public Const CHover As Long = 11
Public Const CLink As Long = 12
Public Const CSplit As Long = 13
Public Const CDropDown As Long = 14

' enQUILLPalette: Palettes: columns by rows, or base colours by rows by columns of shades
Public Const QP8X2 As Long = 0
Public Const QP9X3 As Long = 1
Public Const QP8X8 As Long = 2
Public Const QP16X8 As Long = 3
Public Const QP24X8 As Long = 4
Public Const QP24X10 As Long = 5
Public Const QP8X4X4 As Long = 6
Public Const QP8X8X6 As Long = 7
Public Const QP12X6X6 As Long = 8
Public Const QP16X8X6 As Long = 9
Public Const QP24X8X6 As Long = 10
Public Const QP32X8X6 As Long = 11
