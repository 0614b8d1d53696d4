' A Single result that is too large is an overflow when declared and a Double in a Variant.
'> Double
'! 6 Overflow
Sub main()
    Dim v, s As Single
    v = 3E38!
    Debug.Print TypeName(v * 10!)
    s = 3E38!
    Debug.Print s * s
End Sub
