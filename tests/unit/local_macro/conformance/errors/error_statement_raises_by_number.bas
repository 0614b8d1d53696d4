' The statement Error raises the error of that number.
'> 53 File not found
Sub main()
    On Error Resume Next
    Error 53
    Debug.Print Err.Number & " " & Err.Description
End Sub
