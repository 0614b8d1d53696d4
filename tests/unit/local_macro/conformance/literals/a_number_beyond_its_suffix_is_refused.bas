' 40000 is no Integer.
'? 4:9 Overflow
Sub main()
    x = 40000%
End Sub
