' Each call has its own local variables and parameters.
'> 1 2 3 done
Function Walk(ByVal depth As Long) As String
    Dim mine As String
    mine = CStr(depth)
    If depth > 1 Then Walk = Walk(depth - 1) & " " & mine Else Walk = mine
End Function

Sub main()
    Debug.Print Walk(3) & " done"
End Sub
