' Writing to the variable of For Each leaves the array as it is.
'> 1 2
Sub main()
    Dim a As Variant, v As Variant
    a = Array(1, 2)
    For Each v In a
        v = v * 10
    Next
    Debug.Print a(0) & " " & a(1)
End Sub
