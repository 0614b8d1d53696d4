' Spc adds its blanks to what was printed before, also behind a comma.
'> a               b
Sub main()
    Debug.Print "a", Spc(2); "b"
End Sub
