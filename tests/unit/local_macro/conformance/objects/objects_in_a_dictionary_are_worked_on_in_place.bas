' A collection that a Dictionary holds is reached through its key.
'> 2 3
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    Set d("list") = New Collection
    d("list").Add 1
    d("list").Add Array(1, 2, 3)
    Debug.Print d("list").Count & " " & d("list")(2)(2)
End Sub
