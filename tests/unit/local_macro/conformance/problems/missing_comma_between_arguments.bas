' Arguments are parted by commas.
'? 4:17 Expected: )
Sub main()
    x = Mid("a" 1)
End Sub
