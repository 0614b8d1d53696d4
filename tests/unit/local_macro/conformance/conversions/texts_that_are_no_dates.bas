' A text that is neither a date nor a number is a type mismatch.
'> 13 13 13 13
Sub main()
    On Error Resume Next
    For Each text In Array("soon", "2/30/2020", "25:00", "")
        x = CDate(text)
        e = e & " " & Err.Number
        Err.Clear
    Next
    Debug.Print Mid(e, 2)
End Sub
