' A value has to fit into the record.
'! 59 Bad record length
Sub main()
    Dim d As Double
    Open "C:\r" For Random As #1 Len = 4
    Put #1, 1, d
End Sub
