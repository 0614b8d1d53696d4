' A declared LongLong ends at 19 digits, in a Variant it goes on as a Double.
'> Double
'! 6 Overflow
Sub main()
    Dim n As LongLong, v
    n = 9223372036854775807^
    v = n
    Debug.Print TypeName(v * v)
    n = n + 1
End Sub
