' A module behind VBA has its own functions only.
'? 4:29 Method or data member not found: CInt
Sub main()
    Debug.Print VBA.Strings.CInt("1")
End Sub
