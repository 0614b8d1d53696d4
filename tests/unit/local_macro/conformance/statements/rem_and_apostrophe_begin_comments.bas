' Rem at the beginning of a statement and an apostrophe anywhere begin a comment that lasts to the line's end.
'> a'b
'> Rem
Sub main()
    Rem Debug.Print "no": Debug.Print "no"
    Debug.Print "a'b" ' Debug.Print "no"
    Dim x: Rem another comment
    x = "Rem"
    Debug.Print x
End Sub
