' A Byte is never negative.
'> 255 0
'> 6
'> 6
Sub main()
    Dim b As Byte, c As Byte
    b = 255
    Debug.Print b & " " & c
    On Error Resume Next
    b = 256
    Debug.Print "" & Err.Number
    Err.Clear
    b = -1
    Debug.Print "" & Err.Number
End Sub
