' A whole array is one element of a ParamArray.
'> 0 3
Sub Show(ParamArray all())
    Debug.Print UBound(all) & " " & UBound(all(0))
End Sub

Sub main()
    Show Array(1, 2, 3, 4)
End Sub
