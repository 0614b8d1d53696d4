' A ParamArray begins at 0, whatever Option Base says.
'> 0 1
Option Base 1

Sub Show(ParamArray rest())
    Debug.Print LBound(rest) & " " & UBound(rest)
End Sub

Sub main()
    Show "x", "y"
End Sub
