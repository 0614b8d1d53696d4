' A collection without items gives no turn.
'> 0
Sub main()
    Dim c As New Collection, v As Variant, turns As Long
    For Each v In c
        turns = turns + 1
    Next
    Debug.Print turns & ""
End Sub
