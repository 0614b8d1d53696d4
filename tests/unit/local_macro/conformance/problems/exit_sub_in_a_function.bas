' A function is left by Exit Function.
'? 4:5 Exit Sub not allowed in Function or Property
Function f()
    Exit Sub
End Function
Sub main()
End Sub
