' Select Case runs the first arm that fits and no other, even when a later one fits as well.
'> range
Sub main()
    Select Case 5
    Case 1 To 9
        Debug.Print "range"
    Case 5
        Debug.Print "value"
    End Select
End Sub
