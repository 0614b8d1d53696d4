' Ten tenths are one in Currency, and not in Double.
'> True False
Sub main()
    Dim c As Currency, d As Double
    For i = 1 To 10
        c = c + 0.1
        d = d + 0.1
    Next
    Debug.Print (c = 1) & " " & (d = 1)
End Sub
