' LSet and RSet work on String * n and on fields too.
'> [  7][7  ]
Type Cell
    text As String * 3
End Type

Sub main()
    Dim c As Cell, s As String * 3
    RSet c.text = "7"
    LSet s = 7
    Debug.Print "[" & c.text & "][" & s & "]"
End Sub
