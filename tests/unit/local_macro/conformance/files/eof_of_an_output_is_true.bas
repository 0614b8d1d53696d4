' A file that is written is always at its end.
'> True
Sub main()
    Open "C:\a.txt" For Output As #1
    Debug.Print EOF(1)
End Sub
