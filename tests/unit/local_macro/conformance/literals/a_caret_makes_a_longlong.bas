' The sign ^ behind a whole number makes it a LongLong.
'> LongLong 5
'> LongLong 2147483648
'> LongLong 65535
Sub main()
    Debug.Print TypeName(5^) & " " & 5^
    Debug.Print TypeName(2147483648^) & " " & 2147483648^
    Debug.Print TypeName(&HFFFF^) & " " & &HFFFF^
End Sub
