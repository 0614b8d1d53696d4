' A placeholder behind \ or in quotes is no place for a digit.
'> #5 5% 0:5
Sub main()
    Debug.Print Format(5, "\#0") & " " & Format(5, "0\%") & " " & Format(5, """0:""0")
End Sub
