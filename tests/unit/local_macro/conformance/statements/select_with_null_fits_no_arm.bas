' Null equals nothing, so only Case Else takes it.
'> else
Sub main()
    Select Case Null
    Case 0: Debug.Print "zero"
    Case "": Debug.Print "text"
    Case Else: Debug.Print "else"
    End Select
End Sub
