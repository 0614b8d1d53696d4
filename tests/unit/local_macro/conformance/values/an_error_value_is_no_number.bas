' A value made by CVErr can be kept and asked for, but not be reckoned with.
'> Error Error 13 True
'> 13
Sub main()
    v = CVErr(13)
    Debug.Print TypeName(v) & " " & CStr(v) & " " & IsError(v)
    On Error Resume Next
    x = v + 1
    Debug.Print "" & Err.Number
End Sub
