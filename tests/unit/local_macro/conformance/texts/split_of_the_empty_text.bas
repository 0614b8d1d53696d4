' The empty text has no parts, not one.
'> 0 -1 String()
Sub main()
    parts = Split("")
    Debug.Print LBound(parts) & " " & UBound(parts) & " " & TypeName(parts)
End Sub
