' A String * n that goes to a String parameter keeps its length when it is written.
'> [new  ]
Sub Change(s As String)
    s = "new"
End Sub

Sub main()
    Dim s As String * 5
    Change s
    Debug.Print "[" & s & "]"
End Sub
