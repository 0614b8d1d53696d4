' Exit Sub leaves from any depth of blocks.
'> in
'> back
Sub Inner()
    Dim i As Long
    For i = 1 To 3
        With New Collection
            Debug.Print "in"
            Exit Sub
        End With
    Next
End Sub

Sub main()
    Inner
    Debug.Print "back"
End Sub
