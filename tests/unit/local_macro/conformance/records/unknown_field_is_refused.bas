' A record has the fields of its type and no others.
'? 9:7 Method or data member not found: m
Type Thing
    n As Long
End Type

Sub main()
    Dim a As Thing
    a.m = 1
End Sub
