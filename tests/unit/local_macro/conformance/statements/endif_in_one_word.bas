' "EndIf" is taken like "End If".
'> one
'> two
Sub main()
    If True Then
        Debug.Print "one"
    EndIf
    Debug.Print "two"
End Sub
