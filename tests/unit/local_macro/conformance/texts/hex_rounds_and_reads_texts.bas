' Fractions are rounded half to even, texts are read; Empty is 0 and Null is Null.
'> 100 FE A 0 True
Sub main()
    Debug.Print Hex(255.5) & " " & Hex(254.5) & " " & Hex("10") & " " & Hex(Empty) & " " & IsNull(Hex(Null))
End Sub
