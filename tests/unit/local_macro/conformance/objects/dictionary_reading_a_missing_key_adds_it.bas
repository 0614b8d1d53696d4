' Reading a key that isn't there adds it with an Empty value; Exists doesn't.
'> False True 1 True
Sub main()
    Dim d As Object, before As Boolean, v As Variant
    Set d = CreateObject("Scripting.Dictionary")
    before = d.Exists("a")
    v = d("a")
    Debug.Print before & " " & IsEmpty(v) & " " & d.Count & " " & d.Exists("a")
End Sub
