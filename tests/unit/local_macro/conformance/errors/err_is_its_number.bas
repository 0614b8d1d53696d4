' Err without a member is its number.
'> 11 yes
Sub main()
    Dim zero As Long
    On Error Resume Next
    zero = 1 \ zero
    Debug.Print Err & IIf(Err = 11, " yes", " no")
End Sub
