' The signs % & ! # @ behind a number choose its type.
'> Integer Long Single Double Currency
Sub main()
    Debug.Print TypeName(1%) & " " & TypeName(1&) & " " & TypeName(1!) & " " & TypeName(1#) & " " & TypeName(1@)
End Sub
