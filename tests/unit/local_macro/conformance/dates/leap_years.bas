' A year is leap when it is divisible by four, but for full centuries that 400 doesn't divide.
'> 29 28 29 28
Sub main()
    Debug.Print Day(DateSerial(2024, 3, 0)) & " " & Day(DateSerial(1900, 3, 0)) & " " & Day(DateSerial(2000, 3, 0)) & " " & _
        Day(DateSerial(2023, 3, 0))
End Sub
