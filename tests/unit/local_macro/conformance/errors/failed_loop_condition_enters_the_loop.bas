' When the condition of Do While fails under Resume Next, the body runs.
'> body
Sub main()
    Dim zero As Long
    On Error Resume Next
    Do While 1 \ zero = 1
        Debug.Print "body"
        Exit Do
    Loop
End Sub
