' Set takes an object or Nothing.
'! 424 Object required
Sub main()
    Dim v As Variant
    Set v = 5
End Sub
