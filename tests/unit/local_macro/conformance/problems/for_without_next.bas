' For needs Next before the procedure ends.
'? 5:1 Expected: Next
Sub main()
    For i = 1 To 3
End Sub
