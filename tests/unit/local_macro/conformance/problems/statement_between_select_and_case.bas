' Nothing but comments stands between Select Case and its first Case.
'? 5:9 Expected: End Select
Sub main()
    Select Case x
        y = 1
    Case 1
    End Select
End Sub
