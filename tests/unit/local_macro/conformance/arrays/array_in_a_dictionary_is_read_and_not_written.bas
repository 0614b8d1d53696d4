' An element of an array that an object holds can be read at once; writing to it changes a copy.
'> 2 2
Sub main()
    Dim d As Object, v As Variant
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = Array(1, 2)
    Debug.Print d("a")(1) & " ";
    d("a")(1) = 9
    Debug.Print d("a")(1) & ""
End Sub
