' Each comma right in front of the point, or at the end, divides by a thousand.
'> 1235 1.2 1,235
Sub main()
    Debug.Print Format(1234567, "0,") & " " & Format(1234567, "0,,.0") & " " & Format(1234567, "#,##0,")
End Sub
