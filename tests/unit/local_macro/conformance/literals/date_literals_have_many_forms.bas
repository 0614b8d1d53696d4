' A date between # signs may be written with numbers, with month names or as year-month-day.
'> 2020-01-02
'> 2020-01-02
'> 2020-01-02
'> 2020-01-02
'> 2020-01-02
Sub main()
    Debug.Print Format(#1/2/2020#, "yyyy-mm-dd")
    Debug.Print Format(#January 2, 2020#, "yyyy-mm-dd")
    Debug.Print Format(#2 Jan 2020#, "yyyy-mm-dd")
    Debug.Print Format(#2020-01-02#, "yyyy-mm-dd")
    Debug.Print Format(#1-2-2020#, "yyyy-mm-dd")
End Sub
