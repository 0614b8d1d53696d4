' Dir with a pattern begins a list, Dir without goes on; the empty text ends it, and once more is error 5.
'> a.txt b.txt []
'> 5
Sub main()
    Dim s As String, name1 As Variant
    MkDir "C:\d"
    For Each name1 In Array("a.txt", "b.txt", "c.log")
        Open "C:\d\" & name1 For Output As #1
        Close #1
    Next
    s = Dir("C:\d\*.txt")
    s = s & " " & Dir
    s = s & " [" & Dir() & "]"
    Debug.Print s
    On Error Resume Next
    s = Dir
    Debug.Print Err.Number & ""
End Sub
