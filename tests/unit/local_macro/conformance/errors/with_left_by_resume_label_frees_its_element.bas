' A With block whose statement failed no longer holds its array once Resume has gone to a label outside.
'> 5
Type Thing
    n As Long
End Type

Sub main()
    Dim a() As Thing, zero As Long
    ReDim a(2)
    On Error GoTo Failed
    With a(1)
        .n = 1 \ zero
    End With
    Exit Sub
Done:
    ReDim Preserve a(5)
    Debug.Print UBound(a) & ""
    Exit Sub
Failed:
    Resume Done
End Sub
