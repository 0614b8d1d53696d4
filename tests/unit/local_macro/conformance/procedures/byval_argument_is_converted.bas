' A ByVal argument is converted to the parameter's type like an assignment.
'> 13 Integer
'> 6
Sub Show(ByVal n As Integer)
    Debug.Print n & " " & TypeName(n)
End Sub

Sub main()
    Show "12.6"
    On Error Resume Next
    Show 100000
    Debug.Print Err.Number & ""
End Sub
