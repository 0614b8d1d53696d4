' The function Error gives a number's words, without a number those of the last error.
'> Overflow
'> Type mismatch
'> []
Sub main()
    Dim n As Long
    Debug.Print Error(6)
    On Error Resume Next
    n = "x"
    Debug.Print Error
    Err.Clear
    Debug.Print "[" & Error & "]"
End Sub
