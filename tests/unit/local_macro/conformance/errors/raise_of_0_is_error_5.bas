' 0 is no error.
'> 5
Sub main()
    On Error Resume Next
    Err.Raise 0
    Debug.Print Err.Number & ""
End Sub
