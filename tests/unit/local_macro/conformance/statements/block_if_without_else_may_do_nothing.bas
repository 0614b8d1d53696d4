' A block If without Else and with no true condition goes on behind End If.
'> after
Sub main()
    If False Then
        Debug.Print "first"
    ElseIf 0 Then
        Debug.Print "second"
    End If
    Debug.Print "after"
End Sub
