' Addresses of procedures aren't covered: AddressOf.
'? 4:9 AddressOf is not supported by this macro language
Sub main()
    x = AddressOf main
End Sub
