' "Print #1," and "Print #1" write an empty line each.
'> 4
Sub main()
    Open "C:\a.txt" For Output As #1
    Print #1,
    Print #1
    Debug.Print LOF(1) & ""
End Sub
