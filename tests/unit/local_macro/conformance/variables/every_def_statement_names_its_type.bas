' There is a Def statement for every type but Decimal.
'> Boolean Byte Currency Date Double Integer Long LongLong LongLong Nothing Single String Empty
DefBool A
DefByte B
DefCur C
DefDate D
DefDbl E
DefInt F
DefLng G
DefLngLng H
DefLngPtr I
DefObj J
DefSng K
DefStr L
DefVar M

Sub main()
    Dim a1, b1, c1, d1, e1, f1, g1, h1, i1, j1, k1, l1, m1
    Debug.Print TypeName(a1) & " " & TypeName(b1) & " " & TypeName(c1) & " " & TypeName(d1) & " " & TypeName(e1) & _
        " " & TypeName(f1) & " " & TypeName(g1) & " " & TypeName(h1) & " " & TypeName(i1) & " " & TypeName(j1) & _
        " " & TypeName(k1) & " " & TypeName(l1) & " " & TypeName(m1)
End Sub
