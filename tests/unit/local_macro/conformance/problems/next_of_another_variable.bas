' Next names the variable of its own loop.
'? 5:10 Invalid Next control variable reference
Sub main()
    For i = 1 To 3
    Next j
End Sub
