' A number beyond the range of its type character is an overflow already when compiled.
'? 4:9 Overflow
Sub main()
    x = 40000%
End Sub
