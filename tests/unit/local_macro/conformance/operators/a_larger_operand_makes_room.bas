' One Long among the operands makes the result a Long.
'> 40000 65536 60000
Sub main()
    Dim i As Integer
    i = 200
    Debug.Print CLng(i) * i & " " & 256& * 256 & " " & 300 * CLng(i)
End Sub
