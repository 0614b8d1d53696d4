' Years 0 to 29 are of this century, 30 to 99 of the last; 100 is the year 100.
'> 2029 1930 1999 100
Sub main()
    Debug.Print Year(DateSerial(29, 1, 1)) & " " & Year(DateSerial(30, 1, 1)) & " " & Year(DateSerial(99, 1, 1)) & " " & _
        Year(DateSerial(100, 1, 1))
End Sub
