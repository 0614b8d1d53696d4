' A missing Variant holds an error value, which is no number.
'! 13 Type mismatch
Sub Show(Optional v As Variant)
    Debug.Print v + 1
End Sub

Sub main()
    Show
End Sub
