' Abs, Int, Fix and Round answer Null with Null; functions that give a Double take no Null.
'> True True True True
'> 94 94
Sub main()
    Debug.Print IsNull(Abs(Null)) & " " & IsNull(Int(Null)) & " " & IsNull(Fix(Null)) & " " & IsNull(Round(Null))
    On Error Resume Next
    x = Sqr(Null): e = Err.Number: Err.Clear
    x = Sin(Null): e = e & " " & Err.Number
    Debug.Print e
End Sub
