' A name that the object hasn't is error 438.
'! 438 Object doesn't support this property or method
Sub main()
    Dim c As New Collection
    CallByName c, "Nothing", vbMethod
End Sub
