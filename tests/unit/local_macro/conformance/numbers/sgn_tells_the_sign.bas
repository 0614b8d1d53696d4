' Sgn gives -1, 0 or 1 as an Integer.
'> -1 0 1 Integer
Sub main()
    Debug.Print Sgn(-0.001) & " " & Sgn(0) & " " & Sgn(1E20) & " " & TypeName(Sgn(5&))
End Sub
