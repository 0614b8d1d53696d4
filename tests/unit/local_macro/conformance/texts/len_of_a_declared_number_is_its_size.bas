' Len of a variable of a number type gives the bytes that it takes.
'> 1 2 4 8 4 8 8 8 2
Sub main()
    Dim b As Byte, i As Integer, l As Long, ll As LongLong, s As Single, d As Double, c As Currency, w As Date, f As Boolean
    Debug.Print Len(b) & " " & Len(i) & " " & Len(l) & " " & Len(ll) & " " & Len(s) & " " & Len(d) & " " & Len(c) & " " & _
        Len(w) & " " & Len(f)
End Sub
