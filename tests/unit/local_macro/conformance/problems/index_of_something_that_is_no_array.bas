' Only arrays, Variants and objects are indexed.
'? 5:9 Expected: array
Sub main()
    Dim n As Long
    x = n(1)
End Sub
