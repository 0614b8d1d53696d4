' Hour and its kind give Variants, so that reckoning with them doesn't overflow as with declared Integers.
'> 64800 202600
Sub main()
    Debug.Print Hour(#6:00:00 PM#) * 3600 & " " & Year(#3/8/2026#) * 100
End Sub
