' A handler that is reached without an error runs like other statements, until Resume.
'> 0
'! 20 Resume without error
Sub main()
    On Error GoTo Failed
Failed:
    Debug.Print Err.Number & ""
    On Error GoTo 0
    Resume Next
End Sub
