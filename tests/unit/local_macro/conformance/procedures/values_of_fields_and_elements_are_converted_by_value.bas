' An element of another type goes to a reference parameter as a converted copy.
'> 7 3
Sub Change(n As Double)
    n = n + 4
    Debug.Print n & " ";
End Sub

Sub main()
    Dim a(1) As Long
    a(0) = 3
    Change a(0) + 0
    Debug.Print a(0) & ""
End Sub
