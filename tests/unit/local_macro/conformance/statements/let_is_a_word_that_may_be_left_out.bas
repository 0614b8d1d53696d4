' "Let a = b" and "a = b" are the same.
'> 5 5
Sub main()
    Dim a As Long, b As Long
    Let a = 5
    b = a
    Debug.Print a & " " & b
End Sub
