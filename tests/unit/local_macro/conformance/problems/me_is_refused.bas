' A module isn't an object: Me.
'? 4:9 Me is not supported by this macro language
Sub main()
    x = Me.Name
End Sub
