' Texts are compared as Option Compare says, by default by code: capitals come before small letters.
'> small
'> in range
Sub main()
    Select Case "b"
    Case "B": Debug.Print "capital"
    Case "b": Debug.Print "small"
    End Select
    Select Case "ham"
    Case "A" To "Z": Debug.Print "capitals"
    Case "egg" To "milk": Debug.Print "in range"
    End Select
End Sub
