' + joins two texts, and adds when one operand is a number.
'> 34
'> 7
'> 4x
'> 13
Sub main()
    Debug.Print "3" + "4"
    Debug.Print "" & ("3" + 4)
    v = Empty
    Debug.Print "4" + v + "x"
    On Error Resume Next
    x = "x" + 4
    Debug.Print "" & Err.Number
End Sub
