' Two quotes within a text stand for one.
'> a"b
'> "
'> 3
Sub main()
    Debug.Print "a""b"
    Debug.Print """"
    Debug.Print "" & Len("a""b")
End Sub
