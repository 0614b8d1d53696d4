' A time stands alone or behind the date, on 12 or on 24 hours.
'> Date 0.5625
'> Date 0.5625
'> 43832.75
'> 0.25
Sub main()
    Debug.Print TypeName(#1:30:00 PM#) & " " & CDbl(#1:30:00 PM#)
    Debug.Print TypeName(#13:30#) & " " & CDbl(#13:30#)
    Debug.Print CDbl(#1/2/2020 6:00:00 PM#) & ""
    Debug.Print CDbl(#6 AM#) & ""
End Sub
