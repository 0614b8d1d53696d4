' The name of a function is its result variable, to which texts can be joined.
'> 1;2;3;
Function Numbers() As String
    Dim i As Long
    For i = 1 To 3
        Numbers = Numbers & i & ";"
    Next
End Function
Sub main()
    Debug.Print Numbers()
End Sub
