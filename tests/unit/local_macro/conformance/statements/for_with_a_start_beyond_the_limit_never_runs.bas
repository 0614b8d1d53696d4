' When the start lies beyond the limit the body doesn't run, and the counter keeps the start.
'> 5
'> 1
Sub main()
    Dim i As Long
    For i = 5 To 1
        Debug.Print "never"
    Next
    Debug.Print i & ""
    For i = 1 To 5 Step -1
        Debug.Print "never"
    Next
    Debug.Print i & ""
End Sub
