' Erase of a fixed array gives records their initial values and objects Nothing.
'> 0 True
Type Thing
    n As Long
End Type

Sub main()
    Dim a(1) As Thing, c(1) As Collection
    a(0).n = 5
    Set c(0) = New Collection
    Erase a, c
    Debug.Print a(0).n & " " & (c(0) Is Nothing)
End Sub
