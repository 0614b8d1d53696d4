' When the condition of a block If fails under Resume Next, the next statement is the first of the block.
'> inside
'> behind
Sub main()
    Dim zero As Long
    On Error Resume Next
    If 1 \ zero = 1 Then
        Debug.Print "inside"
    Else
        Debug.Print "else"
    End If
    Debug.Print "behind"
End Sub
