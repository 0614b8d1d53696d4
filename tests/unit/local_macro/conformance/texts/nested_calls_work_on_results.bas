' Functions of texts take what others give.
'> txt report
Sub main()
    path = "C:\work\report.txt"
    Debug.Print Mid(path, InStrRev(path, ".") + 1) & " " & Mid(path, InStrRev(path, "\") + 1, _
        InStrRev(path, ".") - InStrRev(path, "\") - 1)
End Sub
