' A negative start, a stop that isn't beyond it and an interval below 1 are error 5; Null is Null.
'> True 5 5 5
Sub main()
    e = "" & IsNull(Partition(Null, 0, 10, 1))
    On Error Resume Next
    x = Partition(1, -1, 10, 1): e = e & " " & Err.Number: Err.Clear
    x = Partition(1, 10, 10, 1): e = e & " " & Err.Number: Err.Clear
    x = Partition(1, 0, 10, 0): e = e & " " & Err.Number
    Debug.Print e
End Sub
