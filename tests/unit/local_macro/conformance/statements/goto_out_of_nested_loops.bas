' A jump may leave any number of loops.
'> 2 1
Sub main()
    Dim i As Long, j As Long
    For i = 1 To 3
        For j = 1 To 3
            If i = 2 Then GoTo Found
        Next
    Next
Found:
    Debug.Print i & " " & j
End Sub
