' A Def statement names letters.
'? 3:8 Expected: letter
DefInt 5
Sub main()
End Sub
