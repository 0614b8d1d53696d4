' Close closes the numbers of its list, without a list all files; Reset closes all as well.
'> 1 3
'> 1
'> 1
Sub main()
    Open "C:\a" For Output As #1
    Open "C:\b" For Output As #2
    Open "C:\c" For Output As #3
    Close #1
    Debug.Print FreeFile & " ";
    Open "C:\a" For Output As #1
    Close #3, 2
    Open "C:\b" For Output As #2
    Debug.Print FreeFile & ""
    Close
    Debug.Print FreeFile & ""
    Open "C:\a" For Output As #1
    Reset
    Debug.Print FreeFile & ""
End Sub
