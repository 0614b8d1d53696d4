' A LongLong holds whole numbers of 19 digits to the last digit.
'> 9223372036854775807
'> 9007199254740993
'> 4294967296
'! 6 Overflow
Sub main()
    Dim n As LongLong
    n = "9223372036854775807"
    Debug.Print "" & n
    n = CLngLng("9007199254740992") + 1
    Debug.Print "" & n
    n = 65536
    Debug.Print "" & n * n
    n = "9223372036854775808"
End Sub
