' A local variable may have the name of a procedure or of a function of the language, which it hides.
'> 5 7
Function Total()
    Total = 1
End Function

Sub main()
    Dim Total As Long, Left As Long
    Total = 5
    Left = 7
    Debug.Print Total & " " & Left
End Sub
