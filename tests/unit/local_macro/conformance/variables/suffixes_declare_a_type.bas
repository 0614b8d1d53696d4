' A type character behind a name declares its type; later uses may leave it out.
'> Integer Long Single Double Currency String
Sub main()
    Dim a%, b&, c!, d#, e@, f$
    Debug.Print TypeName(a) & " " & TypeName(b) & " " & TypeName(c) & " " & TypeName(d) & " " & TypeName(e) & " " & TypeName(f)
End Sub
