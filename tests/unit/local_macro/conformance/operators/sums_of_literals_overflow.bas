' Literals have declared types too: two Integers overflow as an Integer.
'> 6 6
Sub main()
    On Error Resume Next
    n = 32767 + 1: e = Err.Number: Err.Clear
    n = 2147483647 + 1: e = e & " " & Err.Number
    Debug.Print e
End Sub
