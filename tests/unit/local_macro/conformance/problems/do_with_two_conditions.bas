' A Do has its condition at the beginning or at the end.
'? 5:10 Expected: end of statement
Sub main()
    Do While x
    Loop Until y
End Sub
