' Next needs For.
'? 4:5 Next without For
Sub main()
    Next
End Sub
