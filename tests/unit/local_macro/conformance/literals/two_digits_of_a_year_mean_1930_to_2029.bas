' The years 00 to 29 belong to this century, 30 to 99 to the last.
'> 2029 1930
Sub main()
    Debug.Print Year(#1/1/29#) & " " & Year(#1/1/30#)
End Sub
