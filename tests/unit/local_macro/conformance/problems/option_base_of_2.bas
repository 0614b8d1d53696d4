' Option Base is 0 or 1.
'? 3:13 Expected: 0 or 1
Option Base 2
Sub main()
End Sub
