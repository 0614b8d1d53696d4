' A function's result is what was last assigned to its name, or the type's initial value.
'> 2
'> 0
'>
Function Last() As Long
    Last = 1
    Last = 2
End Function

Function None() As Long
End Function

Function NoText() As String
    Exit Function
    NoText = "x"
End Function

Sub main()
    Debug.Print Last() & ""
    Debug.Print None() & ""
    Debug.Print NoText()
End Sub
