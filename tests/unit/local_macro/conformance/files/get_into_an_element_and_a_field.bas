' Get fills elements and fields as well as variables.
'> 7 8
Type Thing
    n As Integer
End Type

Sub main()
    Dim a(2) As Integer, t As Thing
    Open "C:\b" For Binary As #1
    Put #1, , 7
    Put #1, , 8
    Get #1, 1, a(2)
    Get #1, , t.n
    Debug.Print a(2) & " " & t.n
End Sub
