' A name that is used with a type character and no declaration is of that type.
'> Integer 3
Sub main()
    n% = 2.7
    Debug.Print TypeName(n) & " " & n%
End Sub
