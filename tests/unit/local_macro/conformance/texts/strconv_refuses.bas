' What StrConv can't do is error 5; Null stays Null.
'> True
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print IsNull(StrConv(Null, vbUpperCase))
    x = StrConv("a", 512)
End Sub
