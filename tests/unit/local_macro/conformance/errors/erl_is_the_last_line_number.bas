' Erl is the number of the last numbered line before the error, or 0.
'> 0
'> 20
Sub main()
    Dim zero As Long
    On Error Resume Next
    zero = 1 \ zero
    Debug.Print Erl & ""
10  zero = 0
20  zero = 0
    zero = 1 \ zero
    Debug.Print Erl & ""
30  zero = 0
End Sub
