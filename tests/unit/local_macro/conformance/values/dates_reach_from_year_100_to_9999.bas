' A day outside of the years 100 to 9999 is an overflow.
'> 1/1/100
'> 12/31/9999
'> 6
'> 6
Sub main()
    Debug.Print CDate(-657434)
    Debug.Print CDate(2958465)
    On Error Resume Next
    d = CDate(-657435)
    Debug.Print "" & Err.Number
    Err.Clear
    d = CDate(2958466)
    Debug.Print "" & Err.Number
End Sub
