' % shows the number times a hundred, and itself.
'> 45% 12.3% -5%
Sub main()
    Debug.Print Format(0.45, "0%") & " " & Format(0.1234, "0.0%") & " " & Format(-0.05, "0%")
End Sub
