' In a line with two Ifs, an Else belongs to the nearest If that has none yet.
'> inner else
'> outer else
Sub main()
    If True Then If False Then Debug.Print "inner" Else Debug.Print "inner else"
    If True Then If False Then Debug.Print "inner" Else Debug.Print "" & "outer else" Else Debug.Print "wrong"
End Sub
