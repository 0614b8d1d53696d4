' A record can't be passed ByVal.
'? 6:16 User-defined type may not be passed ByVal
Type Thing
    n As Long
End Type
Sub Show(ByVal t As Thing)
End Sub
Sub main()
End Sub
