' An Integer holds -32768 to 32767; a half is rounded before the range counts.
'> 32767 -32768
'> 32767
'> 6
Sub main()
    Dim i As Integer, j As Integer
    i = 32767
    j = -32768
    Debug.Print i & " " & j
    i = 32767.4
    Debug.Print "" & i
    On Error Resume Next
    i = 32767.5
    Debug.Print "" & Err.Number
End Sub
