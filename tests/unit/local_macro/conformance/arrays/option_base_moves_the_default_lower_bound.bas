' Option Base 1 lets arrays without a lower bound begin at 1; Array() follows it, Split and VBA.Array don't.
'> 1 1 5 1 0 0
Option Base 1
Sub main()
    Dim a(3) As Long, b() As Long, c(5 To 6) As Long
    ReDim b(2)
    Debug.Print LBound(a) & " " & LBound(b) & " " & LBound(c) & " " & LBound(Array(7, 8)) & " " & LBound(VBA.Array(7, 8)) & " " & LBound(Split("a b"))
End Sub
