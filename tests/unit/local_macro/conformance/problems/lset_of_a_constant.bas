' LSet and RSet need a variable.
'? 4:10 Expected: variable
Sub main()
    LSet "a" = "b"
End Sub
