' A path without drive counts from the current folder, which ChDir sets and CurDir tells.
'> C:\d
'> 4
'> 76
Sub main()
    MkDir "C:\d"
    ChDir "C:\d"
    Debug.Print CurDir
    Open "a.txt" For Output As #1
    Print #1, "ab"
    Close #1
    Debug.Print FileLen("C:\d\a.txt") & ""
    On Error Resume Next
    ChDir "C:\none"
    Debug.Print Err.Number & ""
End Sub
