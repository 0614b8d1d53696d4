' Str puts a blank in front of a number that isn't negative, and no zero in front of its point.
'> [ 5] [-5] [ 0] [ .5] [-.25] [ 1E+20]
Sub main()
    Debug.Print "[" & Str(5) & "] [" & Str(-5) & "] [" & Str(0) & "] [" & Str(0.5) & "] [" & Str(-0.25) & "] [" & _
        Str(1E20) & "]"
End Sub
