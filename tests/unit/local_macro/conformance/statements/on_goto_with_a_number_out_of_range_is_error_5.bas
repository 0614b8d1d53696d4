' The number lies between 0 and 255.
'> 5
'> 5
Sub main()
    Dim n As Long
    On Error Resume Next
    n = -1
    On n GoTo Here
    Debug.Print Err.Number & ""
    Err.Clear
    n = 256
    On n GoTo Here
    Debug.Print Err.Number & ""
Here:
End Sub
