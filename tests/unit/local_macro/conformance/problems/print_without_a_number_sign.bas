' Print and Write want "#" in front of the number.
'? 4:11 Expected: #
Sub main()
    Print 1, "x"
End Sub
