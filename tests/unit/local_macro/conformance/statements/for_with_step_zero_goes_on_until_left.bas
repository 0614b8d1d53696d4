' A step of 0 counts as not negative: the loop lasts until it is left.
'> 3
Sub main()
    Dim i As Long, turns As Long
    For i = 1 To 1 Step 0
        turns = turns + 1
        If turns = 3 Then Exit For
    Next
    Debug.Print turns & ""
End Sub
