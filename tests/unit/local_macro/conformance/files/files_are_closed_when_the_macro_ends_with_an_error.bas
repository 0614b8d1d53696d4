' What was printed is in the file at once; nobody has to close it first.
'> 5
'! 11 Division by zero
Sub main()
    Dim zero As Long
    Open "C:\a.txt" For Output As #1
    Print #1, "abc"
    Debug.Print FileLen("C:\a.txt") & ""
    zero = 1 \ zero
End Sub
