' The address of an object is refused by name.
'? 4:9 ObjPtr is not supported by this macro language
Sub main()
    x = ObjPtr(Err)
End Sub
