' Rnd gives Singles from 0 up to, but not including, 1.
'> Single 0
Sub main()
    Dim outside As Long, i As Long
    Randomize
    For i = 1 To 500
        x = Rnd
        If x < 0 Or x >= 1 Then outside = outside + 1
    Next
    Debug.Print TypeName(Rnd) & " " & outside
End Sub
