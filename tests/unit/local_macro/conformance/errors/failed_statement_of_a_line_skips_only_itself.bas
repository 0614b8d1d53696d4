' Statements parted by colons are statements of their own for Resume Next.
'> a b
Sub main()
    Dim s As String, zero As Long
    On Error Resume Next
    s = "a": s = 1 \ zero: s = s & " b"
    Debug.Print s
End Sub
