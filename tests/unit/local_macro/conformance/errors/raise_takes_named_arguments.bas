' The arguments of Err.Raise may be named.
'> 9 mine
Sub main()
    On Error Resume Next
    Err.Raise Description:="mine", Number:=9
    Debug.Print Err.Number & " " & Err.Description
End Sub
