' LBound and UBound take the number of the dimension, 1 when left out.
'> 0 5 1 2 -1 1
Sub main()
    Dim a(5), b(1 To 2, -1 To 1)
    Debug.Print LBound(a) & " " & UBound(a) & " " & LBound(b) & " " & UBound(b) & " " & LBound(b, 2) & " " & UBound(b, 2)
End Sub
