' Nothing takes the object from a variable.
'> True
Sub main()
    Dim c As Collection
    Set c = New Collection
    Set c = Nothing
    Debug.Print c Is Nothing
End Sub
