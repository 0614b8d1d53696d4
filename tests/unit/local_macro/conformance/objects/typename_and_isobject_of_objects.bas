' TypeName tells the class, Nothing for no object; IsObject is True for both.
'> Collection Nothing Dictionary True True False
Sub main()
    Dim c As New Collection, o As Object, v As Variant
    Debug.Print TypeName(c) & " " & TypeName(o) & " " & TypeName(CreateObject("Scripting.Dictionary")) & " " & IsObject(c) & " " & IsObject(o) & " " & IsObject(v)
End Sub
