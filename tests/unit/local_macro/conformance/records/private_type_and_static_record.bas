' A type may be private, and a variable of it static.
'> 1 2
Private Type Thing
    n As Long
End Type

Sub Count()
    Static t As Thing
    t.n = t.n + 1
    Debug.Print t.n & IIf(t.n = 1, " ", "");
End Sub

Sub main()
    Count
    Count
    Debug.Print
End Sub
