' Blocks of all kinds nest in each other.
'> hit
Sub main()
    Dim i As Long, c As New Collection
    For i = 1 To 1
        Do
            While True
                With c
                    Select Case i
                    Case 1
                        If .Count = 0 Then
                            Debug.Print "hit"
                            Exit Sub
                        End If
                    End Select
                End With
            Wend
        Loop
    Next
End Sub
