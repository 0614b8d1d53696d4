' "Not c Is Nothing" is the usual test for an object.
'> has one
Sub main()
    Dim c As Collection
    If Not c Is Nothing Then Debug.Print "none yet"
    Set c = New Collection
    c.Add 1
    If Not c Is Nothing And c.Count = 1 Then Debug.Print "has one"
End Sub
