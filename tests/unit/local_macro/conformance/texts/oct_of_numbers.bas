' Oct writes the same bits in eights.
'> 17 0 177777 37777777777
Sub main()
    Debug.Print Oct(15) & " " & Oct(0) & " " & Oct(-1) & " " & Oct(-1&)
End Sub
