' A condition that is Null counts as False, and so does its negation.
'> neither
Sub main()
    If Null Then
        Debug.Print "then"
    ElseIf Not Null Then
        Debug.Print "not"
    Else
        Debug.Print "neither"
    End If
End Sub
