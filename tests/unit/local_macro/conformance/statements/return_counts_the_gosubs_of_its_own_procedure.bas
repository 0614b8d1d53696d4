' A GoSub of the caller isn't a GoSub of the procedure that it calls.
'> 3 Return without GoSub
Sub Inner()
    Return
End Sub

Sub main()
    On Error Resume Next
    GoSub Part
    Exit Sub
Part:
    Inner
    Debug.Print Err.Number & " " & Err.Description
    Return
End Sub
