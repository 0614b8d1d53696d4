' Two types are different even with the same fields.
'! 13 Type mismatch
Type One
    n As Long
End Type

Type Two
    n As Long
End Type

Sub main()
    Dim a As One, b As Two
    a = b
End Sub
