' A field that goes into a String is taken as it stands, numbers included.
'> [007] [ab c] [1e3]
Sub main()
    Dim a As String, b As String, c As String
    Open "C:\a.txt" For Output As #1
    Print #1, "007,  ab c  ,1e3"
    Close #1
    Open "C:\a.txt" For Input As #1
    Input #1, a, b, c
    Debug.Print "[" & a & "] [" & b & "] [" & c & "]"
End Sub
