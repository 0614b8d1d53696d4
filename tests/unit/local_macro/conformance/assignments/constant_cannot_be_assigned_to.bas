' A constant keeps its value.
'? 5:5 Assignment to constant not permitted
Const kLimit = 5
Sub main()
    kLimit = 6
End Sub
