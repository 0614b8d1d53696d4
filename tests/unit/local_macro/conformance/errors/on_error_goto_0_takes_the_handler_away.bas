' After On Error GoTo 0 an error ends the macro again.
'> handled
'! 9 Subscript out of range
Sub main()
    Dim a(1) As Long, n As Long
    On Error Resume Next
    n = a(5)
    Debug.Print "handled"
    On Error GoTo 0
    n = a(5)
End Sub
