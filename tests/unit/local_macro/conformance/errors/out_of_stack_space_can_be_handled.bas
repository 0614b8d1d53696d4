' Endless recursion is error 28, which a handler takes.
'> 28 Out of stack space
Sub Endless()
    Endless
End Sub

Sub main()
    On Error Resume Next
    Endless
    Debug.Print Err.Number & " " & Err.Description
End Sub
