' An operator or keyword without its operand is told with the place where one was expected.
'? 4:8 Expected: expression
Sub main()
    If = 2 Then
    End If
End Sub
