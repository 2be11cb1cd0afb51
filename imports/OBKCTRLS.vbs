' Orbek Controls 1.0.0: constants for scripts.

' ButtonTypesdd: Kinds of a button; all look the same, and a form keeps which one it was given
Const CButton = 1
Const CFlat = 2
Const CSoft = 3
Const CRaised = 4
Const CSunken = 5
Const CEtched = 6
Const CBump = 7
Const CFramed = 8
Const CBorderless = 9
Const CToolbar = 10
Const CHover = 11
Const CLink = 12
Const CSplit = 13
Const CDropDown = 14

' enQUILLPalette: Palettes: columns by rows, or base colours by rows by columns of shades
Const QP8X2 = 0
Const QP9X3 = 1
Const QP8X8 = 2
Const QP16X8 = 3
Const QP24X8 = 4
Const QP24X10 = 5
Const QP8X4X4 = 6
Const QP8X8X6 = 7
Const QP12X6X6 = 8
Const QP16X8X6 = 9
Const QP24X8X6 = 10
Const QP32X8X6 = 11
