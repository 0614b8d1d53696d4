' End Select needs its Select Case.
'? 4:5 End Select without Select Case
Sub main()
    End Select
End Sub
