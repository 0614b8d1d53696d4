' A block within another one ends first.
'? 6:5 Next without For
Sub main()
    For i = 1 To 3
        If x Then
    Next
        End If
End Sub
