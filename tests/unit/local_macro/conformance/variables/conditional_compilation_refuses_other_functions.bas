' Functions that need a running program can't be called in a condition.
'? 3:5 Sub or Function not defined: UCase
#If UCase("a") = "A" Then
#End If
Sub main()
End Sub
