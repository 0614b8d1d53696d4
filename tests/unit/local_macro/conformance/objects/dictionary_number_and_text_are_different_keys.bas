' 1 and "1" are two keys, while 1 as Integer, Long or Double is one.
'> 2 a a b
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d.Add 1, "a"
    d.Add "1", "b"
    Debug.Print d.Count & " " & d(1&) & " " & d(1#) & " " & d("1")
End Sub
