' An element that came from an expression may be written to; nobody sees it afterwards.
'> 9 1
Sub Fill(ParamArray all() As Variant)
    all(0) = 9
    all(1) = 9
End Sub

Sub main()
    Dim a As Long, b As Long
    a = 1
    b = 1
    Fill a, (b)
    Debug.Print a & " " & b
End Sub
