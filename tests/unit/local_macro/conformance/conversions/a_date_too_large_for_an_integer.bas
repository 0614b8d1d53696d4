' The day number of a date of today doesn't fit an Integer.
'> 43831
'! 6 Overflow
Sub main()
    Debug.Print "" & CLng(#1/1/2020#)
    x = CInt(#1/1/2020#)
End Sub
