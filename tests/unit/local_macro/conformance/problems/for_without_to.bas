' For needs its limit.
'? 4:14 Expected: To
Sub main()
    For i = 1
    Next
End Sub
