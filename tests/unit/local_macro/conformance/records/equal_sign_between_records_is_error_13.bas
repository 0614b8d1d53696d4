' Records can't be compared.
'! 13 Type mismatch
Type Thing
    n As Long
End Type

Sub main()
    Dim a As Thing, b As Thing
    Debug.Print a = b
End Sub
