' Dim a(n) goes from 0 to n, Dim a(m To n) from m to n; bounds may be negative.
'> 0 3
'> -2 2
Sub main()
    Dim a(3) As Long, b(-2 To 2) As Long
    Debug.Print LBound(a) & " " & UBound(a)
    Debug.Print LBound(b) & " " & UBound(b)
End Sub
