' StrComp knows the ways -1 to 2.
'! 5 Invalid procedure call or argument
Sub main()
    x = StrComp("a", "b", 3)
End Sub
