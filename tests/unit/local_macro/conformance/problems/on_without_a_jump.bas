' Behind the number of On stands GoTo or GoSub.
'? 4:10 Expected: GoTo or GoSub
Sub main()
    On n Print
End Sub
