' Statements may stand behind Else and ElseIf ... Then on the same line of a block If.
'> same line
'> next line
Sub main()
    If False Then
        Debug.Print "no"
    Else: Debug.Print "same line"
        Debug.Print "next line"
    End If
End Sub
