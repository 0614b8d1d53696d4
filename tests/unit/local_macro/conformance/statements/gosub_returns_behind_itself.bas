' GoSub comes back by Return, behind the place that it was called from.
'> one sub two sub
Sub main()
    Dim s As String
    s = "one"
    GoSub Add
    s = s & " two"
    GoSub Add
    Debug.Print s
    Exit Sub
Add:
    s = s & " sub"
    Return
End Sub
