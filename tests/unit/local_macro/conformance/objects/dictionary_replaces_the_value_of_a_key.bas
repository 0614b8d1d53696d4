' Assigning to a key that is there replaces its value.
'> 1 5
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = 1
    d("a") = 5
    Debug.Print d.Count & " " & d("a")
End Sub
