' A written type or a type character wins over the Def statement.
'> Long String
DefInt A-Z
Sub main()
    Dim a As Long, b$
    Debug.Print TypeName(a) & " " & TypeName(b)
End Sub
