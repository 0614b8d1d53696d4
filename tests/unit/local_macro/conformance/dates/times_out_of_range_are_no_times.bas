' There is no hour 24, no minute 60, and no hour 13 in the afternoon.
'> False False False True
Sub main()
    Debug.Print IsDate("24:00") & " " & IsDate("12:60") & " " & IsDate("13:00 PM") & " " & IsDate("23:59:59")
End Sub
