' The items of a Dictionary are walked like an array.
'> 3
Sub main()
    Dim d As Object, v As Variant, n As Long
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = 1
    d("b") = 2
    For Each v In d.Items
        n = n + v
    Next
    Debug.Print n & ""
End Sub
