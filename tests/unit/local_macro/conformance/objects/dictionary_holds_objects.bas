' A value may be an object, set by Set; and an object may be a key.
'> 1 found
Sub main()
    Dim d As Object, c As New Collection
    Set d = CreateObject("Scripting.Dictionary")
    c.Add "x"
    Set d("list") = c
    d.Add c, "found"
    Debug.Print d("list").Count & " " & d(c)
End Sub
