' A type character behind a name that is declared otherwise is a mistake.
'? 5:5 Type-declaration character does not match declared data type
Sub main()
    Dim n As Long
    n$ = "x"
End Sub
