' In a Variant a result that doesn't fit moves on: Byte, Integer, Long, Double.
'> Integer 300
'> Long 40000
'> Double 4294967296
'> Integer -1
Sub main()
    Dim b, i, n
    b = CByte(150): i = 200: n = 65536
    Debug.Print TypeName(b + b) & " " & (b + b)
    Debug.Print TypeName(i * i) & " " & i * i
    Debug.Print TypeName(n * n) & " " & n * n
    Debug.Print TypeName(CVar(CByte(1)) - CVar(CByte(2))) & " " & (CVar(CByte(1)) - CVar(CByte(2)))
End Sub
