' The functions that give a Variant answer Null with Null.
'> True True True True True True True
Sub main()
    Debug.Print IsNull(Left(Null, 1)) & " " & IsNull(Mid(Null, 1)) & " " & IsNull(Trim(Null)) & " " & _
        IsNull(UCase(Null)) & " " & IsNull(Len(Null)) & " " & IsNull(InStr("a", Null)) & " " & IsNull(InStrRev(Null, "a"))
End Sub
