' A member without an object needs a With block around.
'? 4:6 Invalid or unqualified reference
Sub main()
    .y = 1
End Sub
