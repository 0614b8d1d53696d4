' SLN takes the same each year, SYD falling digits of the years, DDB twice the straight rate of what is left.
'> 1800 3000 600
'> 4000 2400 1440 864 296
Sub main()
    Debug.Print SLN(10000, 1000, 5) & " " & SYD(10000, 1000, 5, 1) & " " & SYD(10000, 1000, 5, 5)
    Debug.Print DDB(10000, 1000, 5, 1) & " " & DDB(10000, 1000, 5, 2) & " " & DDB(10000, 1000, 5, 3) & " " & _
        DDB(10000, 1000, 5, 4) & " " & DDB(10000, 1000, 5, 5)
End Sub
