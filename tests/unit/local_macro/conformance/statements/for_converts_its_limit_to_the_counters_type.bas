' Start, limit and step become the type of the counter: 2.6 is 3 for a Long.
'> 3
Sub main()
    Dim i As Long, turns As Long
    For i = 1 To 2.6
        turns = turns + 1
    Next
    Debug.Print turns & ""
End Sub
