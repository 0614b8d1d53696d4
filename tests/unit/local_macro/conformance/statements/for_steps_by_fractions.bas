' A Double counter may step by a fraction.
'> 0 0.25 0.5
Sub main()
    Dim x As Double, s As String
    For x = 0 To 0.5 Step 0.25
        s = s & " " & x
    Next
    Debug.Print Trim(s)
End Sub
