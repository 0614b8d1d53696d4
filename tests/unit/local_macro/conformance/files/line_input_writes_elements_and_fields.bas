' The target may be an element or a field.
'> x y
Type Thing
    s As String
End Type

Sub main()
    Dim a(1) As String, t As Thing
    Open "C:\a.txt" For Output As #1
    Print #1, "x": Print #1, "y"
    Close #1
    Open "C:\a.txt" For Input As #1
    Line Input #1, a(1)
    Line Input #1, t.s
    Debug.Print a(1) & " " & t.s
End Sub
