' A function that fails under Resume Next goes on with what it had assigned.
'> 5
Function Half(n As Long) As Long
    On Error Resume Next
    Half = 5
    Half = n \ 0
End Function

Sub main()
    Debug.Print Half(4) & ""
End Sub
