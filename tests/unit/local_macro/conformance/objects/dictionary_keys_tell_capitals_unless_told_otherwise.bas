' Keys differ by case; with CompareMode vbTextCompare, set while the dictionary is empty, they don't.
'> False True 5
Sub main()
    Dim d As Object, e As Object
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = 1
    Set e = CreateObject("Scripting.Dictionary")
    e.CompareMode = vbTextCompare
    e("a") = 1
    On Error Resume Next
    d.CompareMode = vbTextCompare
    Debug.Print d.Exists("A") & " " & e.Exists("A") & " " & Err.Number
End Sub
