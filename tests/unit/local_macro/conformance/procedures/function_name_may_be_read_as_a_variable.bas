' Inside the function its name without parentheses is the result so far.
'> aaa
Function Triple(s As String) As String
    Dim i As Long
    For i = 1 To 3
        Triple = Triple & s
    Next
End Function

Sub main()
    Debug.Print Triple("a")
End Sub
