' Behind a loop that was left, the variable holds the element at which it was left.
'> b
Sub main()
    Dim v As Variant
    For Each v In Array("a", "b", "c")
        If v = "b" Then Exit For
    Next
    Debug.Print v
End Sub
