' TypeName of an object is the name of its class.
'> Collection ErrObject Nothing
Sub main()
    Dim o As Object
    Debug.Print TypeName(New Collection) & " " & TypeName(Err) & " " & TypeName(o)
End Sub
