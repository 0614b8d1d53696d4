' FileLen, FileDateTime, GetAttr and SetAttr need the file.
'> 53 53 53 53
Sub main()
    Dim s As String, v As Variant
    On Error Resume Next
    v = FileLen("C:\none"): s = Err.Number: Err.Clear
    v = FileDateTime("C:\none"): s = s & " " & Err.Number: Err.Clear
    v = GetAttr("C:\none"): s = s & " " & Err.Number: Err.Clear
    SetAttr "C:\none", 0
    Debug.Print s & " " & Err.Number
End Sub
