' A name stands for one thing in a module.
'? 5:5 Ambiguous name detected: work
Sub work()
End Sub
Sub work()
End Sub
Sub main()
End Sub
