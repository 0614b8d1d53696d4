' Is wants objects on both sides.
'! 424 Object required
Sub main()
    Dim v As Variant
    v = 5
    Debug.Print v Is Nothing
End Sub
