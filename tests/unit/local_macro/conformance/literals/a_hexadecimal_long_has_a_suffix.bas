' With & behind it a hexadecimal number is a Long, so that &HFFFF& is positive.
'> Long 65535
'> Long 32768
Sub main()
    Debug.Print TypeName(&HFFFF&) & " " & &HFFFF&
    Debug.Print TypeName(&H8000&) & " " & &H8000&
End Sub
