' Nothing has no members.
'! 91 Object variable or With block variable not set
Sub main()
    Dim o As Object
    o.DoSomething
End Sub
