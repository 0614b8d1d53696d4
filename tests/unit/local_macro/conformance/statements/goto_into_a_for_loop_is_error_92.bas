' A For loop that was entered by a jump has no limit.
'! 92 For loop not initialized
Sub main()
    Dim i As Long
    GoTo Inside
    For i = 1 To 3
Inside:
    Next
End Sub
