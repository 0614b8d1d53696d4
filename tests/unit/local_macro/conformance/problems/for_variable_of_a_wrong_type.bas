' A loop counts with a number, not with a text.
'? 5:9 Type mismatch
Sub main()
    Dim s As String
    For s = 1 To 3
    Next
End Sub
