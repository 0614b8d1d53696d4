' Addresses of variables are refused by name, qualified with the language's name as well.
'? 4:13 VarPtr is not supported by this macro language
Sub main()
    x = VBA.VarPtr(y)
End Sub
