' A format that starts with its point still shows the digits in front of it.
'> 12.50 .25
Sub main()
    Debug.Print Format(12.5, ".00") & " " & Format(0.25, ".00")
End Sub
