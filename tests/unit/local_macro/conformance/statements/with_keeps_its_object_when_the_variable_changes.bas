' Setting the variable to another object inside the block doesn't change what the block works on.
'> 1 0
Sub main()
    Dim c As Collection, first As Collection
    Set first = New Collection
    Set c = first
    With c
        Set c = New Collection
        .Add "x"
    End With
    Debug.Print first.Count & " " & c.Count
End Sub
