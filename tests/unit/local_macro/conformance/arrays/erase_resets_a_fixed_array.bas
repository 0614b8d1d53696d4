' Erase sets the elements of a fixed array back to their initial values and keeps its bounds.
'> 0 [] 3
Sub main()
    Dim a(3) As Long, s(1) As String
    a(1) = 5
    s(1) = "x"
    Erase a, s
    Debug.Print a(1) & " [" & s(1) & "] " & UBound(a)
End Sub
