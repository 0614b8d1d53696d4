' Months and days beyond their bounds move on to the next month or year, 0 and below to the ones before.
'> 3/1/2024
'> 1/1/2025
'> 12/1/2023
'> 2/29/2024
'> 12/31/2023
Sub main()
    Debug.Print DateSerial(2024, 2, 30)
    Debug.Print DateSerial(2024, 13, 1)
    Debug.Print DateSerial(2024, 0, 1)
    Debug.Print DateSerial(2024, 3, 0)
    Debug.Print DateSerial(2024, 1, 0)
End Sub
