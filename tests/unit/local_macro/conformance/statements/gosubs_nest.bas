' Each Return goes back to the GoSub that was made last.
'> outer inner outer
Sub main()
    Dim s As String
    GoSub Outer
    Debug.Print s
    Exit Sub
Outer:
    s = "outer"
    GoSub Inner
    s = s & " outer"
    Return
Inner:
    s = s & " inner"
    Return
End Sub
