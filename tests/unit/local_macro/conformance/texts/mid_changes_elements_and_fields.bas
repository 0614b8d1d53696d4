' Mid as a statement changes whatever can be assigned to, also with its $.
'> aXc [Xbc] dXYf
Private Type Entry
    Name As String
End Type
Sub main()
    Dim names(1) As String, one As Entry, v
    names(1) = "abc": one.Name = "abc": v = "def"
    Mid(names(1), 2, 1) = "X"
    Mid(one.Name, 1) = "X"
    Mid$(v, 2) = "XY"
    v = Left(v, 3) & "f"
    Debug.Print names(1) & " [" & one.Name & "] " & v
End Sub
