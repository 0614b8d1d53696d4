' A function may return a record; its fields are read behind the call.
'> 3 4
Type Point
    x As Long
    y As Long
End Type

Function MakePoint(x As Long, y As Long) As Point
    MakePoint.x = x
    MakePoint.y = y
End Function

Sub main()
    Dim p As Point
    p = MakePoint(3, 4)
    Debug.Print p.x & " " & MakePoint(1, 4).y
End Sub
