' Exp, Sqr and the like give a Double, Rnd and Timer a Single, UBound and Len a Long.
'> Double Double Double Single Single Long Long
Sub main()
    Debug.Print TypeName(Exp(0)) & " " & TypeName(Sqr(4)) & " " & TypeName(Val("1")) & " " & TypeName(Rnd) & " " & _
        TypeName(Timer) & " " & TypeName(UBound(Array(1))) & " " & TypeName(Len("abc"))
End Sub
