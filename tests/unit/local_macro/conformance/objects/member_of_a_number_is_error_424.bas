' A Variant without an object has no members.
'! 424 Object required
Sub main()
    Dim v As Variant
    v = 5
    v.DoSomething
End Sub
