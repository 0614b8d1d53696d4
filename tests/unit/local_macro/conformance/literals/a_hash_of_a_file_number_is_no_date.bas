' # in front of a digit is a file number where no second # follows on the line.
'> 1
Sub main()
    Open "hash.txt" For Output As #1
    Debug.Print "" & (FreeFile - 1)
    Close #1
End Sub
