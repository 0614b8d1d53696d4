' A declaration counts for the whole procedure, wherever it stands.
'> 0
Sub main()
    If False Then
        Dim n As Long
    End If
    Debug.Print n & ""
End Sub
