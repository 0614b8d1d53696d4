' Remove takes one key out, RemoveAll all; a missing key is an error.
'> 1 b
'> 32811
'> 0
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = 1
    d("b") = 2
    d.Remove "a"
    Debug.Print d.Count & " " & d.Keys()(0)
    On Error Resume Next
    d.Remove "a"
    Debug.Print Err.Number & ""
    d.RemoveAll
    Debug.Print d.Count & ""
End Sub
