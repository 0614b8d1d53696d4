' A variable of a class takes objects of that class only.
'! 13 Type mismatch
Sub main()
    Dim c As Collection
    Set c = CreateObject("Scripting.Dictionary")
End Sub
