' The arms of #If may hold parts of a statement's block.
'> big
Sub main()
    Dim n As Long
    n = 10
#If True Then
    If n > 5 Then
#Else
    If n > 50 Then
#End If
        Debug.Print "big"
    End If
End Sub
