' Select Case compares by the module's Option Compare.
'> found
'> between
Option Compare Text
Sub main()
    Select Case "ABC"
    Case "abc": Debug.Print "found"
    End Select
    Select Case "M"
    Case "a" To "z": Debug.Print "between"
    End Select
End Sub
