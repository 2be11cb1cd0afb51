' What else there is on the form and in its module, for the examples of the documentation.
Class Thing
    Public BackColor
    Public Visible
End Class
Class ThreeRecords
    Private place
    Public Default Function Field(name)
        Field = name & " " & CStr(place)
    End Function
    Public Property Get EOF()
        EOF = (place = 3)
    End Property
    Public Sub MoveNext()
        place = place + 1
    End Sub
End Class
Dim told, DueDate, Picture1, FrameOrder, FrameDelivery, FrameNotes, records
Set Picture1 = New Thing
Set FrameOrder = New Thing
Set FrameDelivery = New Thing
Set FrameNotes = New Thing
Set records = New ThreeRecords
' Wine's own takes no text for a date, and its CDate reads one that begins with a day of the week.
Function IsDate(text)
    Dim read
    On Error Resume Next
    read = CDate(text)
    IsDate = Err.Number = 0 And Mid(text, 4, 1) <> " "
End Function
