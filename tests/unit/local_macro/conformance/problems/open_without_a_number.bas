' Open needs a file number behind As.
'? 4:27 Expected: As
Sub main()
    Open "C:\a" For Output
End Sub
