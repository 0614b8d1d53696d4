' For ... Next includes its limit; afterwards the counter stands one step beyond it.
'> 1 2 3
'> 4
Sub main()
    Dim i As Long, s As String
    For i = 1 To 3
        s = s & IIf(s = "", "", " ") & i
    Next i
    Debug.Print s
    Debug.Print i & ""
End Sub
