' A Variant counter of dates counts by days and stays a date.
'> Date 2/28/2024
'> Date 2/29/2024
'> Date 3/1/2024
Sub main()
    Dim d As Variant
    For d = #2/28/2024# To #3/1/2024#
        Debug.Print TypeName(d) & " " & d
    Next
End Sub
