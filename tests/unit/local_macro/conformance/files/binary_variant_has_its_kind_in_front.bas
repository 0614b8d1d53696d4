' A Variant is written with two bytes for its kind, a text with two for its length behind them.
'> 4 7
'> Integer 5
'> String abc
Sub main()
    Dim v As Variant, n As Long
    Open "C:\b" For Binary As #1
    v = 5
    Put #1, , v
    n = LOF(1)
    v = "abc"
    Put #1, , v
    Debug.Print n & " " & (LOF(1) - n)
    v = Empty
    Get #1, 1, v
    Debug.Print TypeName(v) & " " & v
    Get #1, , v
    Debug.Print TypeName(v) & " " & v
End Sub
