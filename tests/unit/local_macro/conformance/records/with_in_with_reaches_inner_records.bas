' With blocks over a record and over one of its fields write through to the variable.
'> 4 ok
Type Inner
    n As Long
End Type

Type Outer
    parts(1) As Inner
    name As String
End Type

Sub main()
    Dim o As Outer
    With o
        With .parts(1)
            .n = 4
        End With
        .name = "ok"
    End With
    Debug.Print o.parts(1).n & " " & o.name
End Sub
