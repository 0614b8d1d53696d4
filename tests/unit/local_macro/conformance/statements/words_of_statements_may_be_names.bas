' Words that mean something in one statement only may be names of variables.
'> 28
Sub main()
    Dim name As Long, line As Long, width As Long, reset As Long, seek As Long, access As Long, text As Long
    name = 1
    line = 2
    width = 3
    reset = 4
    seek = 5
    access = 6
    text = 7
    Debug.Print (name + line + width + reset + seek + access + text) & ""
End Sub
