' While ... Wend repeats as long as its condition is True.
'> xxx
Sub main()
    Dim s As String
    While Len(s) < 3
        s = s & "x"
    Wend
    Debug.Print s
End Sub
