' A Dictionary finds values by key; assigning to a new key adds it.
'> 2 1 two
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d.Add "a", 1
    d("b") = "two"
    Debug.Print d.Count & " " & d("a") & " " & d.Item("b")
End Sub
