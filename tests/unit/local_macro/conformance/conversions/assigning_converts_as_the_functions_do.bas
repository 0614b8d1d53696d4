' Assigning to a declared variable follows the same rules as CInt and its kind.
'> 2 255 1/1/2000 0.1235
'> 13
'> 94
'> 6
Sub main()
    Dim i As Integer, b As Byte, d As Date, c As Currency
    i = "2.5": b = True: d = 36526: c = "0.12345"
    Debug.Print i & " " & b & " " & d & " " & (c + 0.0001@)
    On Error Resume Next
    i = "two": Debug.Print "" & Err.Number: Err.Clear
    i = Null: Debug.Print "" & Err.Number: Err.Clear
    i = 40000: Debug.Print "" & Err.Number
End Sub
