' Both ends of "low To high" fit; with the higher end first nothing fits.
'> low high
Sub main()
    Dim s As String, n As Integer
    For n = 3 To 6
        Select Case n
        Case 3 To 3: s = s & "low"
        Case 6 To 6: s = s & " high"
        Case 5 To 4: s = s & " wrong"
        End Select
    Next
    Debug.Print s
End Sub
