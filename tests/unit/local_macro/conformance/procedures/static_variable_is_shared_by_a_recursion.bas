' A recursion shares its static variables.
'> 3
Function Depth(n As Long) As Long
    Static calls As Long
    calls = calls + 1
    If n > 1 Then Depth = Depth(n - 1) Else Depth = calls
End Function

Sub main()
    Debug.Print Depth(3) & ""
End Sub
