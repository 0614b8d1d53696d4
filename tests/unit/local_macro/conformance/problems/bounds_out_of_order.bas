' The upper bound isn't below the lower one.
'? 4:9 Array bounds out of order
Sub main()
    Dim a(5 To 3) As Long
End Sub
