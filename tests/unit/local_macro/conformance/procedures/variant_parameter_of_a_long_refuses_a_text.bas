' Writing a text that is no number to a Long through a Variant parameter is a mismatch.
'! 13 Type mismatch
Sub Change(v As Variant)
    v = "word"
End Sub

Sub main()
    Dim n As Long
    Change n
End Sub
