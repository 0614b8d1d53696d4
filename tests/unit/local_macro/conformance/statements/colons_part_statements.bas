' Statements of one line are parted by colons; empty statements are allowed.
'> 3
Sub main()
    Dim a As Long: : a = 1: a = a + 2:
    Debug.Print a & ""
End Sub
