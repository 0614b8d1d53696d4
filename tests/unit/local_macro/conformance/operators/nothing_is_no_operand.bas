' An object variable that holds Nothing has no value to reckon with: error 91.
'! 91 Object variable or With block variable not set
Sub main()
    Dim o As Object
    x = o + 1
End Sub
