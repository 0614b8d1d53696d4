' AM/PM, am/pm, A/P, a/p and AMPM show the half of the day as they are written.
'> 4 PM, 4 pm, 4 P, 4 p, 4 PM
'> 9 AM, 9 a, 12 PM, 12 AM
Sub main()
    d = #4:05:09 PM#
    Debug.Print Format(d, "h AM/PM") & ", " & Format(d, "h am/pm") & ", " & Format(d, "h A/P") & ", " & _
        Format(d, "h a/p") & ", " & Format(d, "h AMPM")
    Debug.Print Format(#9:00:00 AM#, "h AM/PM") & ", " & Format(#9:00:00 AM#, "h a/p") & ", " & _
        Format(#12:30:00 PM#, "h AM/PM") & ", " & Format(#12:30:00 AM#, "h AM/PM")
End Sub
