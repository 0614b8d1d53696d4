' Changing the variable that the limit came from doesn't change the loop.
'> 3
Sub main()
    Dim i As Long, n As Long, turns As Long
    n = 3
    For i = 1 To n
        n = 100
        turns = turns + 1
    Next
    Debug.Print turns & ""
End Sub
