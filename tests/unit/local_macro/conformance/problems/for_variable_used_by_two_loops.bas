' An inner loop needs a variable of its own.
'? 5:13 For control variable already in use
Sub main()
    For i = 1 To 3
        For i = 1 To 2
        Next
    Next
End Sub
