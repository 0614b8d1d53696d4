' By reference the caller's object variable can be set to another object.
'> 2
Sub Replace2(c As Collection)
    Set c = New Collection
    c.Add "y"
    c.Add "z"
End Sub

Sub main()
    Dim mine As Collection
    Replace2 mine
    Debug.Print mine.Count & ""
End Sub
