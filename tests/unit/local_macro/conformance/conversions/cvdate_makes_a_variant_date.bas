' CVDate is the older name of CDate.
'> Date 5/4/2020
Sub main()
    Debug.Print TypeName(CVDate("May 4, 2020")) & " " & CVDate("May 4, 2020")
End Sub
