' Name gives a file another name or folder.
'> [] b.txt
Sub main()
    MkDir "C:\d"
    Open "C:\a.txt" For Output As #1
    Close #1
    Name "C:\a.txt" As "C:\d\b.txt"
    Debug.Print "[" & Dir("C:\a.txt") & "] " & Dir("C:\d\b.txt")
End Sub
