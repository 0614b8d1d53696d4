' Every type has its Def statement.
'> Nothing Boolean Byte Currency Date Single
DefObj O
DefBool B
DefByte Y
DefCur C
DefDate D
DefSng S
Sub main()
    Dim o, b, y, c, d, s
    Debug.Print TypeName(o) & " " & TypeName(b) & " " & TypeName(y) & " " & TypeName(c) & " " & TypeName(d) & " " & TypeName(s)
End Sub
