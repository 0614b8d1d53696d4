' A member that the object hasn't is error 438.
'! 438 Object doesn't support this property or method
Sub main()
    Dim c As Object
    Set c = New Collection
    c.Clear
End Sub
