' What another number has locked isn't read by Line Input, Input # and Input: error 70, and the place stays.
'> 70 70 70
'> one
Sub main()
    Dim s As String, t As String, n As Integer
    Open "C:\t.txt" For Output As #1
    Print #1, "one"
    Print #1, "two"
    Close
    Open "C:\t.txt" For Input As #1
    Open "C:\t.txt" For Input As #2
    Lock #2
    On Error Resume Next
    Line Input #1, s: t = Err.Number & " ": Err.Clear
    Input #1, s: t = t & Err.Number & " ": Err.Clear
    s = Input(2, #1): Debug.Print t & Err.Number: Err.Clear
    Unlock #2
    Line Input #1, s
    Debug.Print s
End Sub
