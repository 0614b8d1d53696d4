' ByVal copies the reference, not the object; setting the parameter doesn't change the caller's variable.
'> 1
Sub Change(ByVal c As Collection)
    c.Add "x"
    Set c = New Collection
    c.Add "y"
    c.Add "z"
End Sub

Sub main()
    Dim mine As New Collection
    Change mine
    Debug.Print mine.Count & ""
End Sub
