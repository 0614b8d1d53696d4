' Exit names what it leaves.
'? 4:10 Expected: Do, For, Sub, Function or Property
Sub main()
    Exit While
End Sub
