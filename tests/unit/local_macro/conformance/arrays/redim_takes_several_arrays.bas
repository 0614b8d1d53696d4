' One ReDim may dimension several arrays.
'> 1 2
Sub main()
    Dim a() As Long, b() As String
    ReDim a(1), b(2)
    Debug.Print UBound(a) & " " & UBound(b)
End Sub
