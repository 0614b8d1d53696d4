' A record goes by reference.
'> 3
Type Point
    x As Long
End Type

Sub Move(p As Point)
    p.x = 3
End Sub

Sub main()
    Dim p As Point
    Move p
    Debug.Print p.x & ""
End Sub
