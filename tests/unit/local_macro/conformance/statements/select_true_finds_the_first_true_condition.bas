' With True as its subject, Select Case picks the first arm whose condition holds.
'> big
Sub main()
    Dim n As Long
    n = 50
    Select Case True
    Case n < 10: Debug.Print "small"
    Case n > 40: Debug.Print "big"
    Case n > 20: Debug.Print "middle"
    End Select
End Sub
