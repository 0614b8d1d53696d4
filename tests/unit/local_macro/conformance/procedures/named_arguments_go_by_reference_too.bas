' A variable that is given by name can be written by the procedure.
'> 8
Sub Store(ByVal value As Long, target As Long)
    target = value
End Sub

Sub main()
    Dim n As Long
    Store target:=n, value:=8
    Debug.Print n & ""
End Sub
