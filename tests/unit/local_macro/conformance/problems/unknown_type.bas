' A type name has to be known.
'? 4:14 User-defined type not defined: Strange
Sub main()
    Dim x As Strange
End Sub
