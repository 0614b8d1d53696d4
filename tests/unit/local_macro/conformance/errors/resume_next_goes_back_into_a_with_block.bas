' Resume Next into a With block finds its object as it was.
'> 7
Type Thing
    n As Long
    m As Long
End Type

Sub main()
    Dim a(2) As Thing, zero As Long
    On Error GoTo Failed
    With a(1)
        .n = 1 \ zero
        .m = 7
    End With
    Debug.Print a(1).m & ""
    Exit Sub
Failed:
    Resume Next
End Sub
