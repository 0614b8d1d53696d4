' Own numbers are added to vbObjectError.
'> -2147220991 own
Sub main()
    On Error Resume Next
    Err.Raise vbObjectError + 513, , "own"
    Debug.Print Err.Number & " " & Err.Description
End Sub
