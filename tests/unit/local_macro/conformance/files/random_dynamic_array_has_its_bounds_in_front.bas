' In a record a dynamic array has two bytes for its dimensions and eight for each one's bounds in front.
'> 14 1 to 2: 5 6
Sub main()
    Dim a() As Integer, b() As Integer
    ReDim a(1 To 2)
    a(1) = 5: a(2) = 6
    Open "C:\r" For Random As #1 Len = 14
    Put #1, 1, a
    Get #1, 1, b
    Debug.Print LOF(1) & " " & LBound(b) & " to " & UBound(b) & ": " & b(1) & " " & b(2)
End Sub
