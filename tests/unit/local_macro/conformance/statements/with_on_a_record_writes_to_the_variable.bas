' With a user-defined type the block works on the variable itself, not on a copy.
'> 3 4
Type Point
    x As Long
    y As Long
End Type

Sub main()
    Dim p As Point
    With p
        .x = 3
        .y = .x + 1
    End With
    Debug.Print p.x & " " & p.y
End Sub
