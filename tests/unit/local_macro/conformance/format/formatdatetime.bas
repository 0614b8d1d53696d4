' FormatDateTime shows a date in one of five forms.
'> 3/8/2026 4:05:09 PM
'> Sunday, March 8, 2026
'> 3/8/2026
'> 4:05:09 PM
'> 16:05
'! 5 Invalid procedure call or argument
Sub main()
    d = #3/8/2026 4:05:09 PM#
    Debug.Print FormatDateTime(d)
    Debug.Print FormatDateTime(d, vbLongDate)
    Debug.Print FormatDateTime(d, vbShortDate)
    Debug.Print FormatDateTime(d, vbLongTime)
    Debug.Print FormatDateTime(d, vbShortTime)
    x = FormatDateTime(d, 5)
End Sub
