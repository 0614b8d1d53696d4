' DDB takes another factor than two.
'> 3000 2100 0
Sub main()
    Debug.Print DDB(10000, 1000, 5, 1, 1.5) & " " & DDB(10000, 1000, 5, 2, 1.5) & " " & DDB(10000, 10000, 5, 1)
End Sub
